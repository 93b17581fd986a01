#include "desktop/report_file.h"

#include <QBuffer>
#include <QDateTime>
#include <QPageSize>
#include <QPdfWriter>
#include <algorithm>

#include "core/failure.h"
#include "core/text_files.h"
#include "desktop/canvas_image.h"
#include "desktop/plot_export.h"
#include "desktop/report_paper.h"
#include "runtime/form.h"

namespace tarvex {

namespace {

constexpr int dotsPerInch = 288;
constexpr double marginMillimetres = 15;

/// Small print stays sharp as a drawing; what has many marks is an image.
std::string imageOf(Picture& picture) {
    const auto& canvas = static_cast<const ImageCanvas&>(*picture.canvas());
    const Figure figure{.canvas = canvas, .plot = picture.plot(), .caption = ""};
    const bool sharp = canvas.isPrinted();
    const QByteArray bytes = sharp ? figureFile(".svg", figure) : figureImage(figure);
    return (sharp ? "data:image/svg+xml;base64," : "data:image/png;base64,") + bytes.toBase64().toStdString();
}

/// False where nothing but the ground is to be seen.
bool showsAnything(Picture& picture) {
    const auto* canvas = dynamic_cast<const ImageCanvas*>(picture.canvas());
    if (canvas == nullptr) return false;
    const QImage& image = canvas->image();
    const Color back = canvas->background();
    const QRgb ground = qRgb(back.r, back.g, back.b);
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        if (std::any_of(line, line + image.width(), [ground](QRgb one) { return one != ground; }))
            return true;
    }
    return false;
}

QByteArray pdfOf(const ReportHead& head, const std::vector<ReportBlock>& blocks) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(dotsPerInch);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins({marginMillimetres, marginMillimetres, marginMillimetres, marginMillimetres},
                              QPageLayout::Millimeter);
        writer.setTitle(QString::fromStdString(head.title));
        paintReport(writer, head, blocks);
    }
    return bytes;
}

}  // namespace

std::vector<ReportBlock> drawnBlocks(const std::vector<const Form*>& forms) {
    return reportBlocks(forms, showsAnything);
}

bool isReportFile(const std::filesystem::path& file) {
    return file.extension() == ".html" || file.extension() == ".pdf";
}

void writeReport(const std::filesystem::path& path, const ReportHead& head,
                 const std::vector<const Form*>& forms) {
    if (!isReportFile(path)) throw FileFailure("отчет пишут в файл .html или .pdf");
    needFonts();
    const auto blocks = drawnBlocks(forms);
    const QByteArray bytes = path.extension() == ".pdf"
                                 ? pdfOf(head, blocks)
                                 : QByteArray::fromStdString(reportPage(head, blocks, imageOf));
    writeWhole(path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

ReportHead reportHead(std::string given) {
    return {"Отчет Tarvex7", QDateTime::currentDateTime().toString("dd.MM.yyyy HH:mm").toStdString(),
            TARVEX_VERSION, std::move(given)};
}

}  // namespace tarvex
