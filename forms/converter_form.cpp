#include "forms/converter_form.h"

#include <array>
#include <cmath>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "core/et_ut.h"
#include "theories/geometry.h"

namespace tarvex {

namespace {

constexpr std::array bodyNames = {"Солнце", "Меркурий", "Венера", "Земля",  "Марс", "Юпитер",
                                  "Сатурн", "Уран",     "Нептун", "Плутон", "Луна", "с экрана"};
constexpr int typed = 11;
constexpr double sideView = 13;      ///< height of the side view on the picture
constexpr double earthRadius = 1.2;  ///< of the Earth's disc on the picture
constexpr Color blue{0, 0, 230}, yellow{250, 210, 0}, grey{130, 130, 130}, black{0, 0, 0},
    light{230, 230, 230};

std::string hoursText(const ModelState& s) {
    return Format(s.ChasR, "00") + ":" + Format(s.MinR, "00") + ":" + Format(s.SekR, "00");
}

}  // namespace

ConverterForm::ConverterForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Преобразователь координат"),
      Option1(this, 0, 11,
              [](int i) {
                  return OptionButton::Spec{.name = "Option1",
                                            .caption = bodyNames[i],
                                            .group = "body",
                                            .on = i == 1,
                                            .hint = i == typed
                                                        ? "Координаты берутся из исходных полей"
                                                        : "Тело, координаты которого рассчитываются на дату"};
              }),
      lab(lab_) {
    const Shown badData = orShow("Введите правильно данные", "Tarvex7");
    Command6.onPress([this] { setCoordinates(); }, badData);
    Command7.onPress([this] { convert(); }, badData);
    Command1.onPress([this] {
        Text1.setText(Text4.text());
        Text2.setText(Text5.text());
        Text3.setText(Text6.text());
        Text11.setText(Text14.text());
        Text12.setText(Text15.text());
        Text13.setText(Text16.text());
    });
    Command2.onPress(
        [this] {
            Text31.show(lab.s.JDut0 + Text29.number());
            julianToDate();
            stage("Введите правильно данные", "Tarvex7", [&] { setCoordinates(); });
        },
        orShow("Введите правильно к-во дней", "Tarvex7"));
    Command4.onPress([this] { angle_ = angleTyped(); }, badData);
    Command5.onPress([this] { showAngle(); }, badData);
    Command12.onPress([this] { Text11.show(cut6(angle_)); });
    Command13.onPress([this] { Text12.show(cut6(angle_)); });
    Command10.onPress([this] { dateToJulian(); }, orShow("Введите правильно дату", "Tarvex7"));
    Command11.onPress([this] { julianToDate(); }, orShow("Введите правильно юлианскую дату", "Tarvex7"));
    Command3.onPress([this] { close(); });
    HScroll1.onChange([this] { showScale(); });

    std::vector<Layout> bodyChoice;
    for (int i = 0; i <= typed; ++i) bodyChoice.emplace_back(Option1(i));
    layout_ = row({
        column({frame("Тело", table(3, bodyChoice)),
                row({frame("Форма исходных координат", row({Option2, Option3})),
                     frame("к равноденствию эпохи", row({Option16, Option17}))}),
                frame("Плоскость", row({Option8, Option9, Option10})),
                frame("Система", row({Option18, Option19, Option20})),
                frame("Исходные координаты", fields(2, {Text1, Text11, Text2, Text12, Text3, Text13})),
                row({Command6, Command7}),
                frame("Преобразованные координаты",
                      column({fields(2, {Text4, Text14, Text5, Text15, Text6, Text16}), Command1}))}),
        column(
            {frame("Дата", column({fields(3, {Text32, Text33, Text34}), row({Text31, Command10, Command11}),
                                   row({Command2, Text29})})),
             frame("Место и время",
                   column({fields(2, {Text21, Text22, Text28, Text23, Text26, Text24, Text25}),
                           row({Text30, Text27})})),
             frame("Угол", column({table(4, {Option4, Text7, Text8, Text9, Option5, Text17, Text18, Text19}),
                                   table(2, {Option6, Text10, Option7, Text20}), row({Option11, Option21}),
                                   table(2, {Command4, Command5, Command12, Command13})}))}),
        column({Picture1, row({Label1, HScroll1}), row({Check3, stretch(), Command3})}),
    });
}

void ConverterForm::load() {
    Picture1.setScale(-10, 17, 10, -10);
    showScale();
    clearPicture();
    dateToJulian();
}

int ConverterForm::body() const {
    for (int i = 0; i <= typed; ++i)
        if (Option1(i).on()) return i;
    return 1;
}

ConvFrame ConverterForm::frameChosen() const {
    using Plane = ConvFrame::Plane;
    using Origin = ConvFrame::Origin;
    return {.plane = Option9.on()    ? Plane::Equator
                     : Option10.on() ? Plane::Horizon
                                     : Plane::Ecliptic,
            .origin = Option19.on()   ? Origin::Earth
                      : Option20.on() ? Origin::Observer
                                      : Origin::Sun,
            .j2000 = Option17.on()};
}

void ConverterForm::setCoordinates() {
    ModelState& s = lab.s;
    const int i = body();
    const ConvFrame frame = frameChosen();
    if (Option10.on() && !Option20.on())
        throw Refusal("ГОРизонтальные координаты\r\nзадаются только ТОПОцентрические", "Tarvex7");
    dateToJulian();
    s.JDut0 = s.JD;
    const double seconds = EtUt1900(s);
    Text23.show(cut6(seconds / 60));
    s.JDet = s.JDut0 + seconds / 86400;
    ConvPrepare(s);
    Text26.show(cut6(s.GMST));
    Text24.show(cut6(s.LMST / 15));
    if (i == typed) {
        stage("Введите правильно исходные координаты", "Tarvex7", [&] { typedToBase(i, frame); });
        ConvDraw(i, frame);
        return;
    }
    ConvBodyByTheory(s, i);
    showFromBase(i, frame, {&Text1, &Text2, &Text3, &Text11, &Text12, &Text13});
}

/// The body in the frame into six fields: X, Y, Z, longitude, latitude, distance; its longitude becomes the
/// angle.
void ConverterForm::showFromBase(int i, const ConvFrame& frame, const std::array<TextField*, 6>& to) {
    ModelState& s = lab.s;
    ConvFromBase(s, i, frame);
    to[0]->show(Fix(s.X[i]) / MK);
    to[1]->show(Fix(s.Y[i]) / MK);
    to[2]->show(Fix(s.Z[i]) / MK);
    if (frame.plane == ConvFrame::Plane::Horizon) Text25.show(cut6(s.TAU));
    ConvDraw(i, frame);
    PairGeometry(s, frame.originRow(), i);
    to[3]->show(s.LonPl[i]);
    to[4]->show(s.LatPl);
    to[5]->show(s.Rcur / MK);
    angle_ = s.LonPl[i];
    showAngle();
}

/// Typed coordinates into the base frame; the form of them that was not typed is filled in.
void ConverterForm::typedToBase(int i, const ConvFrame& frame) {
    ModelState& s = lab.s;
    if (Option2.on()) {
        s.LonPl[i] = Text11.number();
        s.LatPl = Text12.number();
        s.Rcur = finite(Text13.number() * MK);
        SpherToXYZ(s, i, s.LonPl[i], s.LatPl, s.Rcur);
        Text1.show(Fix(s.X[i]) / MK);
        Text2.show(Fix(s.Y[i]) / MK);
        Text3.show(Fix(s.Z[i]) / MK);
    } else {
        s.X[i] = finite(Text1.number() * MK);
        s.Y[i] = finite(Text2.number() * MK);
        s.Z[i] = finite(Text3.number() * MK);
        PairGeometry(s, 15, i);
        Text11.show(s.LonPl[i]);
        Text12.show(s.LatPl);
        Text13.show(s.Rcur / MK);
    }
    ConvToBase(s, i, frame);
}

void ConverterForm::convert() {
    const int i = body();
    const ConvFrame frame = frameChosen();
    if (Option10.on() && !Option20.on())
        throw Refusal("Преобразование в ГОРизонтальные координаты\r\nпроизводится только в ТОПОцентрические",
                      "Tarvex7");
    showFromBase(i, frame, {&Text4, &Text5, &Text6, &Text14, &Text15, &Text16});
}

double ConverterForm::angleTyped() const {
    const double sign = Option21.on() ? -1 : 1;
    if (Option4.on()) return (Text7.number() + Text8.number() / 60 + Text9.number() / 3600) * sign * 15;
    if (Option5.on()) return (Text17.number() + Text18.number() / 60 + Text19.number() / 3600) * sign;
    return Option7.on() ? Text20.number() * kUgol : Text10.number();
}

/// Shows the angle in the chosen unit; its sign goes to the sign options.
void ConverterForm::showAngle() {
    const double A = angle_;
    if (Option6.on()) Text10.show(cut6(A));
    if (Option7.on()) Text20.show(cut6(A / kUgol));
    if (!Option4.on() && !Option5.on()) return;
    const double units = std::abs(Option4.on() ? A / 15 : A);
    const double whole = Fix(units), minutes = Fix((units - whole) * 60);
    const double seconds = cut6((units - whole - minutes / 60) * 3600);
    (Option4.on() ? Text7 : Text17).show(whole);
    (Option4.on() ? Text8 : Text18).show(minutes);
    (Option4.on() ? Text9 : Text19).show(seconds);
    (A < 0 ? Option21 : Option11).choose();
}

void ConverterForm::dateToJulian() {
    ModelState& s = lab.s;
    s.ObsL = Text21.number();
    s.ObsB = Text22.number();
    s.kodKalend = 0;
    s.TimeZone = 0;
    NormalizeDate(s, Text32.number(), Text33.int32(), Text34.int32());
    s.JD = JDfromDate(s, s.DenR, s.MesR, s.GodR);
    Text31.show(s.JD);
    showLocalTimes();
}

void ConverterForm::julianToDate() {
    ModelState& s = lab.s;
    s.ObsL = Text21.number();
    s.ObsB = Text22.number();
    s.kodKalend = 0;
    s.TimeZone = 0;
    s.JD = Text31.number();
    DateFromJD(s, s.JD);
    Text32.show(s.DenR);
    Text33.show(s.MesR);
    Text34.show(s.GodR);
    showLocalTimes();
}

void ConverterForm::showLocalTimes() {
    ModelState& s = lab.s;
    const double day = s.DenR, zone = Text28.number();
    DayToHMS(s, day + s.ObsL / 15 / 24);
    Text30.setText("LTut  =" + hoursText(s));
    DayToHMS(s, day + zone / 24);
    Text27.setText("LT =" + hoursText(s));
}

void ConverterForm::showScale() {
    lab.s.Mx = HScroll1.value() * 100000.0 * 1000;
    Label1.setCaption("Масштаб изображения=" + toText(HScroll1.value() / 10.0) + "млн.км/см");
}

void ConverterForm::clearPicture() {
    Picture1.clear();
    for (int i = -10; i <= 10; ++i) Picture1.line(i, -10, i, 17, light);
    for (int j = -10; j <= 17; ++j) Picture1.line(-10, j, 10, j, light);
    for (const double y : {0.0, sideView}) Picture1.line(-10, y, 10, y, grey);
    Picture1.line(0, -10, 0, 17, grey);
}

/// The bodies in both views and the line from the origin of the frame to the body.
void ConverterForm::ConvDraw(int body, const ConvFrame& frame) {
    const ModelState& s = lab.s;
    if (Check3.on()) clearPicture();
    const double Mx = s.Mx;
    for (const bool side : {false, true}) {
        const auto y = [&](int row) { return side ? s.Z[row] / Mx + sideView : s.Y[row] / Mx; };
        const auto x = [&](int row) { return s.X[row] / Mx; };
        const auto offset = [&](int row, double unit) { return (side ? s.Z[row] : s.Y[row]) / unit; };
        const int origin = frame.originRow();
        Picture1.disc(x(3), y(3), earthRadius, blue);
        Picture1.cross(x(3), y(3), earthRadius, grey);
        Picture1.disc(x(0), y(0), 0.6, yellow);
        const double moonX = x(3) + s.X[14], moonY = y(3) + offset(14, 1);
        Picture1.disc(moonX, moonY, 0.4, yellow);
        Picture1.disc(moonX + 0.12, moonY, 0.28, black);
        Picture1.disc(x(3) + earthRadius * s.X[16] / REarth, y(3) + earthRadius * offset(16, REarth), 0.1,
                      black);
        Picture1.line(x(origin), y(origin), x(body), y(body), black);
        if (body != 0 && body != 3)
            Picture1.disc(x(body), y(body), 0.3, {s.ColorR[body], s.ColorG[body], s.ColorB[body]});
    }
}

}  // namespace tarvex
