#include "desktop/report_paper.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QRegularExpression>
#include <algorithm>
#include <numeric>

#include "core/failure.h"
#include "desktop/canvas_image.h"
#include "desktop/plot_export.h"
#include "desktop/qt_text.h"

namespace tarvex {

namespace {

// All in points, 1/72 inch.
constexpr double usualLetters = 9, titleLetters = 16, formLetters = 13, headingLetters = 10;
constexpr double leastLetters = 6;   ///< of a wide table
constexpr double keptTogether = 70;  ///< below a heading, or the next page has it
constexpr double usualPixel = 0.62;  ///< of a figure
constexpr double mostEnlarged = 1.3, leastShare = 0.65;
constexpr double leastOfPage = 0.28, mostOfPage = 0.55;  ///< the height of a figure that is not a tall one
constexpr double tall = 1.3;                      ///< height to width of a figure that has its own page
constexpr double lineBelow = 1.5 * usualLetters;  ///< a caption of the form that stands under its picture
constexpr double cellGap = 3, columnGap = 12, blockGap = 6;  ///< between lines, columns and blocks
constexpr std::size_t mostColumns = 3;                       ///< of fields
constexpr double mostOfName = 0.55, footerRoom = 18;

double longestWord(const QString& text, const QFontMetricsF& metrics) {
    double widest = 0;
    for (const QString& word : text.split(QRegularExpression("[ \\n]")))
        widest = std::max(widest, metrics.horizontalAdvance(word));
    return widest;
}

class Paper {
public:
    explicit Paper(QPagedPaintDevice& device) : device_(device) {
        if (!painter_.begin(&device)) throw FileFailure("устройство не принимает рисунка");
        point_ = painter_.device()->logicalDpiY() / 72.0;
        page_ = QRectF(0, 0, painter_.device()->width(), painter_.device()->height());
        page_.setHeight(page_.height() - footerRoom * point_);
    }
    void end() {
        footer();
        painter_.end();
    }

    void heading(const QString& text, double letters) {
        y_ += (y_ > 0 ? letters : 0) * point_;
        const QFont font = letter(letters, true);
        if (y_ + heightOf(text, font, page_.width()) + keptTogether * point_ > page_.height()) newPage();
        paragraph(text, font);
        y_ += blockGap / 2 * point_;
    }
    void paragraph(const QString& text) { paragraph(text, letter(usualLetters, false)); }

    /// Short fields stand side by side.
    void fields(const std::vector<std::vector<std::string>>& rows) {
        const QFont plain = letter(usualLetters, false), bold = letter(usualLetters, true);
        const QFontMetricsF names(plain, painter_.device()), values(bold, painter_.device());
        double name = 0, value = 0;
        for (const auto& row : rows) {
            name = std::max(name, names.horizontalAdvance(toQt(row[0])));
            value = std::max(value, values.horizontalAdvance(toQt(row[1])));
        }
        const double between = columnGap * point_;
        const auto fitting =
            static_cast<std::size_t>((page_.width() + 2 * between) / (name + value + 3 * between));
        const std::size_t columns =
            std::clamp<std::size_t>(std::min(fitting, rows.size() / 2), 1, mostColumns);
        const double width = (page_.width() + 2 * between) / static_cast<double>(columns);
        name = std::min(name, page_.width() * mostOfName);
        value = width - name - 3 * between;
        const std::size_t lines = (rows.size() + columns - 1) / columns;
        for (std::size_t line = 0; line < lines; ++line) {
            double height = 0;
            for (std::size_t i = line; i < rows.size(); i += lines)
                height = std::max({height, heightOf(toQt(rows[i][0]), plain, name),
                                   heightOf(toQt(rows[i][1]), bold, value)});
            need(height);
            double x = 0;
            for (std::size_t i = line; i < rows.size(); i += lines, x += width) {
                write(toQt(rows[i][0]), plain, {x, y_, name, height}, Qt::AlignLeft);
                write(toQt(rows[i][1]), bold, {x + name + between, y_, value, height}, Qt::AlignLeft);
            }
            y_ += height + cellGap / 2 * point_;
        }
        y_ += blockGap / 2 * point_;
    }

    void table(const ReportBlock& block) {
        double letters = usualLetters;
        std::vector<double> widths = widthsOf(block, letters);
        while (std::accumulate(widths.begin(), widths.end(), 0.0) > page_.width() && letters > leastLetters)
            widths = widthsOf(block, letters -= 0.5);
        for (std::size_t from = 1; from <= widths.size();) {
            std::vector<std::size_t> columns{0};
            double width = widths[0];
            while (from < widths.size() && (columns.size() == 1 || width + widths[from] <= page_.width()))
                columns.push_back(from), width += widths[from++];
            partOfTable(block, widths, columns, letters);
            if (from >= widths.size()) break;
        }
    }

    void figure(Picture& picture, const QString& caption) {
        const auto* canvas = dynamic_cast<const ImageCanvas*>(picture.canvas());
        if (canvas == nullptr) return;
        const Figure figure{.canvas = *canvas, .plot = picture.plot(), .caption = ""};
        const double unit = usualPixel * point_;
        const QFont font = letter(usualLetters, false, true);
        const double words = heightOf(caption, font, page_.width()) + (2 * blockGap + lineBelow) * point_;
        const bool high = canvas->height() > tall * canvas->width();
        y_ += blockGap * point_;
        // Not larger than its letters ask for; a little smaller where it fits on this page then.
        const double largest =
            std::max(mostEnlarged * unit * canvas->height() + 60 * unit, page_.height() * leastOfPage);
        const double most = std::min(largest, page_.height() * (high ? 1 : mostOfPage) - words);
        QSizeF size = figureSize(figure, {page_.width(), most}, unit);
        const double left = page_.height() - y_ - words;
        if (size.height() > left && left > leastShare * size.height())
            size = figureSize(figure, {page_.width(), left}, unit);
        need(size.height() + words);
        painter_.save();
        paintFigure(painter_, {QPointF(0, y_), size}, figure, unit);
        painter_.restore();
        y_ += size.height() + blockGap / 2 * point_;
        paragraph(caption, font);
    }

private:
    static QFont letter(double points, bool bold, bool italic = false) {
        QFont font("DejaVu Sans");
        font.setStyleHint(QFont::SansSerif);
        font.setPointSizeF(points);
        font.setBold(bold);
        font.setItalic(italic);
        return font;
    }
    /// The height of a text that is wrapped at its words, and where one is too long, within it.
    double heightOf(const QString& text, const QFont& font, double width) const {
        const QFontMetricsF metrics(font, painter_.device());
        return metrics.boundingRect({0, 0, width, 1e6}, wrapping(text, metrics, width), text).height();
    }
    static int wrapping(const QString& text, const QFontMetricsF& metrics, double width) {
        return longestWord(text, metrics) > width ? Qt::TextWrapAnywhere : Qt::TextWordWrap;
    }
    void write(const QString& text, const QFont& font, const QRectF& place, Qt::Alignment aligned) {
        painter_.setPen(Qt::black);
        painter_.setFont(font);
        const QFontMetricsF metrics(font, painter_.device());
        painter_.drawText(place, wrapping(text, metrics, place.width() + 1) | aligned, text);
    }
    void paragraph(const QString& text, const QFont& font) {
        const double height = heightOf(text, font, page_.width());
        need(height);
        write(text, font, {0, y_, page_.width(), height}, Qt::AlignLeft);
        y_ += height + cellGap * point_;
    }

    void need(double height) {
        if (y_ > 0 && y_ + height > page_.height()) newPage();
    }
    void newPage() {
        footer();
        device_.newPage();
        ++number_;
        y_ = 0;
    }
    void footer() {
        const QFont font = letter(usualLetters - 1, false);
        write(QString::number(number_), font, {0, page_.height(), page_.width(), footerRoom * point_},
              Qt::AlignRight | Qt::AlignBottom);
    }

    /// Names of columns may be broken between words, and so may long texts; figures may not.
    std::vector<double> widthsOf(const ReportBlock& block, double letters) const {
        const QFontMetricsF plain(letter(letters, false), painter_.device()),
            bold(letter(letters, true), painter_.device());
        const double longText = page_.width() / 3;
        std::vector<double> widths(block.rows.front().size(), 0);
        for (std::size_t i = 0; i < block.rows.size(); ++i)
            for (std::size_t c = 0; c < widths.size(); ++c) {
                const QString text = toQt(block.rows[i][c]);
                const bool name = block.named && i == 0;
                double width = name ? longestWord(text, bold) : plain.horizontalAdvance(text);
                if (!name && !isFigure(block.rows[i][c]))
                    width = std::max(longestWord(text, plain), std::min(width, longText));
                widths[c] = std::max(widths[c], width);
            }
        for (double& width : widths) width = std::min(width + 1 + 2 * cellGap * point_, page_.width());
        return widths;
    }

    void partOfTable(const ReportBlock& block, const std::vector<double>& widths,
                     const std::vector<std::size_t>& columns, double letters) {
        for (std::size_t i = 0; i < block.rows.size(); ++i) {
            const double height = rowHeight(block, i, widths, columns, letters);
            const double before = y_;
            need(height);
            if (y_ < before && i > 0 && block.named) row(block, 0, widths, columns, letters);
            row(block, i, widths, columns, letters);
        }
        y_ += blockGap * point_;
    }
    double rowHeight(const ReportBlock& block, std::size_t i, const std::vector<double>& widths,
                     const std::vector<std::size_t>& columns, double letters) const {
        const QFont font = letter(letters, block.named && i == 0);
        double height = 0;
        for (const std::size_t c : columns)
            height =
                std::max(height, heightOf(toQt(block.rows[i][c]), font, widths[c] - 2 * cellGap * point_));
        return height + cellGap * point_;
    }
    void row(const ReportBlock& block, std::size_t i, const std::vector<double>& widths,
             const std::vector<std::size_t>& columns, double letters) {
        const bool name = block.named && i == 0;
        const double height = rowHeight(block, i, widths, columns, letters);
        double x = 0;
        for (const std::size_t c : columns) {
            const QRectF cell(x, y_, widths[c], height);
            painter_.setPen(QPen(QColor(150, 150, 150), 0.5 * point_));
            painter_.setBrush(name ? QBrush(QColor(235, 235, 235)) : QBrush(Qt::NoBrush));
            painter_.drawRect(cell);
            const double side = cellGap * point_;
            write(toQt(block.rows[i][c]), letter(letters, name),
                  cell.adjusted(side, side / 2, -side, -side / 2),
                  name                         ? Qt::AlignHCenter
                  : isFigure(block.rows[i][c]) ? Qt::AlignRight
                                               : Qt::AlignLeft);
            x += widths[c];
        }
        y_ += height;
    }

    QPagedPaintDevice& device_;
    QPainter painter_;
    QRectF page_;
    double point_ = 1, y_ = 0;  ///< device units of a point; where the next block goes
    int number_ = 1;
};

}  // namespace

void paintReport(QPagedPaintDevice& device, const ReportHead& head, const std::vector<ReportBlock>& blocks) {
    Paper paper(device);
    paper.heading(toQt(head.title), titleLetters);
    paper.paragraph(toQt(reportDate(head)));
    if (!head.given.empty()) {
        paper.heading("Что задано", headingLetters);
        paper.paragraph(toQt(head.given));
    }
    for (const ReportBlock& block : blocks) {
        switch (block.kind) {
            case ReportBlock::Kind::Form:
                paper.heading(toQt(block.text), formLetters);
                break;
            case ReportBlock::Kind::Heading:
                paper.heading(toQt(block.text), headingLetters);
                break;
            case ReportBlock::Kind::Subheading:
                paper.heading(toQt(block.text), usualLetters);
                break;
            case ReportBlock::Kind::Text:
                paper.paragraph(toQt(block.text));
                break;
            case ReportBlock::Kind::Fields:
                paper.fields(block.rows);
                break;
            case ReportBlock::Kind::Table:
                paper.table(block);
                break;
            case ReportBlock::Kind::Picture:
                paper.figure(*block.picture, toQt(block.text));
        }
    }
    paper.end();
}

}  // namespace tarvex
