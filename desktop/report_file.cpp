#include "desktop/report_file.h"

#include <QBuffer>
#include <QDateTime>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextDocument>

#include "core/failure.h"
#include "core/text_files.h"
#include "desktop/canvas_image.h"
#include "desktop/plot_export.h"
#include "runtime/form.h"

namespace tarvex {

namespace {

constexpr int dotsPerInch = 150;
constexpr double marginMillimetres = 15;

std::string imageOf(Picture& picture) {
    const auto* canvas = dynamic_cast<const ImageCanvas*>(picture.canvas());
    if (canvas == nullptr || canvas->image().isNull()) return "";
    needFonts();
    const QByteArray bytes = figureImage({.canvas = *canvas, .plot = picture.plot(), .caption = ""});
    return "data:image/png;base64," + bytes.toBase64().toStdString();
}

std::unique_ptr<QTextDocument> documentOf(const std::string& page) {
    auto document = std::make_unique<QTextDocument>();
    document->setHtml(QString::fromStdString(page));
    return document;
}

QByteArray pdfOf(const std::string& page, const std::string& title) {
    needFonts();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        const auto document = documentOf(page);
        QPdfWriter writer(&buffer);
        writer.setResolution(dotsPerInch);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins({marginMillimetres, marginMillimetres, marginMillimetres, marginMillimetres},
                              QPageLayout::Millimeter);
        writer.setTitle(QString::fromStdString(title));
        document->print(&writer);
    }
    return bytes;
}

}  // namespace

std::unique_ptr<QTextDocument> reportDocument(const ReportHead& head, const std::vector<const Form*>& forms) {
    return documentOf(reportPage(head, forms, imageOf));
}

bool isReportFile(const std::filesystem::path& file) {
    return file.extension() == ".html" || file.extension() == ".pdf";
}

void writeReport(const std::filesystem::path& path, const ReportHead& head,
                 const std::vector<const Form*>& forms) {
    if (!isReportFile(path)) throw FileFailure("отчет пишут в файл .html или .pdf");
    const std::string page = reportPage(head, forms, imageOf);
    const QByteArray bytes =
        path.extension() == ".pdf" ? pdfOf(page, head.title) : QByteArray::fromStdString(page);
    writeWhole(path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

ReportHead reportHead(std::string given) {
    return {"Отчет Tarvex7", QDateTime::currentDateTime().toString("dd.MM.yyyy HH:mm").toStdString(),
            TARVEX_VERSION, std::move(given)};
}

}  // namespace tarvex
