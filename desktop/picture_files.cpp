#include "desktop/picture_files.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QString>

#include "core/failure.h"
#include "core/numbers.h"

namespace tarvex {

namespace {

QByteArray colorText(Color c) {
    return QString::asprintf("#%02x%02x%02x", c.r & 255, c.g & 255, c.b & 255).toLatin1();
}

QByteArray svgNumber(double v) { return QByteArray::number(v, 'g', 7); }

/// name="value" of numbers.
QByteArray attribute(const char* name, double v) {
    return QByteArray(" ") + name + "=\"" + svgNumber(v) + "\"";
}

QByteArray svgMark(const Mark& mark) {
    const QByteArray color = colorText(mark.color);
    switch (mark.kind) {
        case Mark::Kind::Line:
            return "<line" + attribute("x1", mark.x) + attribute("y1", mark.y) + attribute("x2", mark.x2) +
                   attribute("y2", mark.y2) + " stroke=\"" + color + "\"/>\n";
        case Mark::Kind::Text: {
            const double height = mark.x2 * textShare;
            return "<text" + attribute("x", mark.x) + attribute("y", mark.y + height * ascentShare) +
                   attribute("font-size", height) + " fill=\"" + color + "\">" +
                   QString::fromStdString(mark.text).toHtmlEscaped().toUtf8() + "</text>\n";
        }
        case Mark::Kind::Circle:
        case Mark::Kind::Disc:
            break;
    }
    return "<circle" + attribute("cx", mark.x) + attribute("cy", mark.y) + attribute("r", mark.x2) +
           " stroke=\"" + color + "\" fill=\"" + (mark.kind == Mark::Kind::Disc ? color : "none") + "\"/>\n";
}

bool isPoint(const Mark& mark) {
    return mark.kind == Mark::Kind::Circle || mark.kind == Mark::Kind::Disc ||
           (mark.kind == Mark::Kind::Line && mark.x == mark.x2 && mark.y == mark.y2);
}

QByteArray cell(double v) { return QByteArray::fromStdString(toText(v)); }

}  // namespace

QByteArray svgOf(const Drawing& drawing, const QImage& image) {
    const QByteArray size = attribute("width", drawing.width()) + attribute("height", drawing.height());
    QByteArray out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"" +
                     size + " viewBox=\"0 0 " + svgNumber(drawing.width()) + " " +
                     svgNumber(drawing.height()) + "\">\n";
    if (drawing.complete()) {
        out += "<rect" + size + " fill=\"" + colorText(drawing.background()) + "\"/>\n" +
               "<g stroke-width=\"1\" stroke-linecap=\"square\">\n"
               "<g font-family=\"DejaVu Sans, sans-serif\" xml:space=\"preserve\">\n";
        drawing.each([&](const Mark& mark) { out += svgMark(mark); });
        out += "</g>\n</g>\n";
    } else {
        QBuffer buffer;
        QImageWriter(&buffer, "png").write(image);
        out += "<image" + size + " href=\"data:image/png;base64," + buffer.data().toBase64() + "\"/>\n";
    }
    return out + "</svg>\n";
}

QByteArray csvOf(const Drawing& drawing) {
    QByteArray points, lines;
    drawing.each([&](const Mark& mark) {
        if (mark.color == drawing.background() || mark.kind == Mark::Kind::Text) return;
        const QByteArray start =
            cell(drawing.userX(mark, mark.x)) + ";" + cell(drawing.userY(mark, mark.y)) + ";";
        if (isPoint(mark)) {
            points += "точка;" + start + ";;" + colorText(mark.color) + "\r\n";
        } else {
            lines += "отрезок;" + start + cell(drawing.userX(mark, mark.x2)) + ";" +
                     cell(drawing.userY(mark, mark.y2)) + ";" + colorText(mark.color) + "\r\n";
        }
    });
    return "\xEF\xBB\xBFвид;x;y;x2;y2;цвет\r\n" + points + lines;
}

}  // namespace tarvex
