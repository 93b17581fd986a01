// What every window offers: pictures enlarged, copied and saved; tables copied; the list of windows; help.

#include "desktop/picture_view.h"
#include "desktop/window_bar.h"
#include "tests/desktop/window_fixture.h"
#include "tests/support/testing.h"

namespace tarvex {

namespace {

struct WindowTools : test::WindowTest {
    WindowTools() {
        form->Picture2.setScale(-10, 10, 10, -10);
        form->Picture2.disc(5, 5, 0.5, {255, 0, 0});
        QCoreApplication::processEvents();
    }
    PictureView* view() const { return static_cast<PictureView*>(find<QWidget>("Picture2")); }
    /// Where a point of the picture is on the screen now, by what is shown of it.
    QPoint placeOf(double x, double y) const {
        const QRectF area = view()->target(), part = view()->part();
        return QPointF(area.left() + ((x + 10) / 20 - part.left()) / part.width() * area.width(),
                       area.top() + ((10 - y) / 20 - part.top()) / part.height() * area.height())
            .toPoint();
    }
    void wheel(QWidget* on, QPoint at, int notches) const {
        QWheelEvent event(at, on->mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(on, &event);
    }
    /// The menu that is open now.
    static QMenu* menu() {
        auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (open == nullptr) throw Failure("no menu");
        return open;
    }
    static void choose(const QString& text) {
        QMenu* open = menu();
        for (QAction* action : open->actions())
            if (action->text().startsWith(text)) {
                action->trigger();
                open->close();
                return;
            }
        throw Failure("no command " + text.toStdString());
    }
    static void openMenuOf(QWidget* widget, QPoint at, Qt::KeyboardModifiers keys = {}) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget->mapToGlobal(at), keys);
        QApplication::sendEvent(widget, &event);
    }
};

}  // namespace

TEST_F(WindowTools, TheWheelEnlargesAroundThePointerAndDraggingMoves) {
    const QPoint spot = placeOf(5, 5);
    wheel(view(), spot, 8);
    EXPECT_LT(view()->part().width(), 0.2);
    EXPECT_NEAR(view()->userPoint(spot)->x(), 5, 0.2);
    EXPECT_NEAR(view()->userPoint(spot)->y(), 5, 0.2);
    const QImage look = view()->grab().toImage();
    EXPECT_EQ(look.pixel(spot * look.devicePixelRatio()), qRgb(255, 0, 0));

    const QPointF before = *view()->userPoint(spot);
    QTest::mousePress(view(), Qt::LeftButton, {}, spot);
    QTest::mouseMove(view(), spot + QPoint(12, 7));
    QTest::mouseRelease(view(), Qt::LeftButton, {}, spot + QPoint(12, 7));
    EXPECT_NEAR(view()->userPoint(spot + QPoint(12, 7))->x(), before.x(), 1e-6);
    EXPECT_NEAR(view()->userPoint(spot + QPoint(12, 7))->y(), before.y(), 1e-6);

    wheel(view(), spot, -60);
    EXPECT_EQ(view()->part(), QRectF(0, 0, 1, 1));
    wheel(view(), spot, 100);
    EXPECT_GT(view()->part().width(), 0);
    QTest::mouseDClick(view(), Qt::LeftButton, {}, spot);
    EXPECT_EQ(view()->part(), QRectF(0, 0, 1, 1));

    // A picture whose mouse belongs to its form stays as it is.
    auto* other = static_cast<PictureView*>(find<QWidget>("Picture1"));
    wheel(other, other->rect().center(), 8);
    EXPECT_EQ(other->part(), QRectF(0, 0, 1, 1));
}

TEST_F(WindowTools, ThePointerReadsThePictureInItsScale) {
    QTest::mouseMove(view(), placeOf(-5, 2.5) + QPoint(3, 3));
    QTest::mouseMove(view(), placeOf(-5, 2.5));
    QCoreApplication::processEvents();
    const QRegularExpression form_("x = (-?[0-9,]+)    y = (-?[0-9,]+)");
    const auto seen = form_.match(window->statusBar()->currentMessage());
    ASSERT_TRUE(seen.hasMatch()) << window->statusBar()->currentMessage().toStdString();
    EXPECT_NEAR(toNumber(seen.captured(1).toStdString()), -5, 0.2);
    EXPECT_NEAR(toNumber(seen.captured(2).toStdString()), 2.5, 0.2);
}

TEST_F(WindowTools, APictureWithAMeaningShowsItsValues) {
    Picture& picture = form->Picture2;
    picture.axes(0, {{"время", "год", 1900, 10}, {"dAlfaP", "сек", 0, 4, "\""}});
    const int series = picture.series({"dAlfaP", "эксп. 1", 0, 0});
    picture.as(series).disc(-9.35, 5.9, 0.1, {255, 0, 0});
    picture.as(series).disc(3, -2, 0.1, {255, 0, 0});
    QTest::qWait(50);
    const auto colorAt = [&](double x, double y) {
        QTest::mouseMove(view(), {1, 1});  // no crosshair
        const QImage look = view()->grab().toImage();
        return look.pixelColor(placeOf(x, y) * look.devicePixelRatio());
    };
    // Told apart by every eye, whatever colour the form takes; the canvas stays as the form drew it.
    EXPECT_EQ(colorAt(3, -2), QColor(0x00, 0x72, 0xb2));
    EXPECT_EQ(view()->image().pixelColor(13 * 20, 12 * 20), QColor(255, 0, 0));

    QTest::mouseMove(view(), placeOf(-9.35, 5.9) + QPoint(5, 4));
    QCoreApplication::processEvents();
    EXPECT_TRUE(window->statusBar()->currentMessage().startsWith("1806,5 год; 23,6\" - dAlfaP, эксп. 1"))
        << window->statusBar()->currentMessage().toStdString();

    // Words stand over the curves.
    picture.setTextHeight(40);
    picture.text(-3, 9, "\u2588");
    for (double x = -3; x < 0; x += 0.1) picture.as(series).disc(x, 7.2, 0.1, {255, 0, 0});
    QTest::qWait(50);
    EXPECT_EQ(colorAt(-1.8, 7.2), QColor(0, 0, 0));
    EXPECT_EQ(colorAt(-0.2, 7.2), QColor(0x00, 0x72, 0xb2));

    // A run that leaves the picture says so; all of it is shown then, and what comes is followed.
    EXPECT_EQ(view()->findChild<QPushButton*>("fitPicture"), nullptr);
    picture.as(series).disc(14, -30, 0.1, {255, 0, 0});
    QTest::qWait(50);
    auto* notice = view()->findChild<QPushButton*>("fitPicture");
    ASSERT_NE(notice, nullptr);
    EXPECT_TRUE(notice->isVisible());
    QTest::mouseClick(notice, Qt::LeftButton);
    EXPECT_FALSE(notice->isVisible());
    EXPECT_TRUE(view()->part().contains(QPointF(1.2, 2)));
    EXPECT_TRUE(view()->part().contains(QPointF(0.0325, 0.205)));
    EXPECT_EQ(colorAt(14, -30), QColor(0x00, 0x72, 0xb2));
    picture.as(series).disc(40, -30, 0.1, {255, 0, 0});
    QTest::qWait(50);
    EXPECT_TRUE(view()->part().contains(QPointF(2.5, 2)));
    QTest::mouseDClick(view(), Qt::LeftButton, {}, view()->target().center().toPoint());
    EXPECT_EQ(view()->part(), QRectF(0, 0, 1, 1));

    // A white picture follows a dark desktop.
    QPalette night(QColor(40, 40, 40));
    view()->setPalette(night);
    EXPECT_LT(colorAt(-2, -8).lightness(), 60);
    EXPECT_EQ(colorAt(3, -2), QColor(0x56, 0xb4, 0xe9));

    int wiped = 0;
    picture.onWipe([&] { ++wiped, picture.clear(); });
    openMenuOf(view(), {20, 20});
    choose("Очистить рисунок");
    EXPECT_EQ(wiped, 1);
    EXPECT_TRUE(picture.plot().empty());
}

TEST_F(WindowTools, APictureIsCopiedAndSavedFromItsMenu) {
    openMenuOf(view(), {20, 20});
    choose("Копировать рисунок");
    EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(400, 400));

    const test::TempFolder folder;
    const auto saved = [&](const char* command, const char* name) {
        openMenuOf(view(), {20, 20});
        choose(command);
        auto* dialog = window->findChild<QFileDialog*>("savePicture");
        if (dialog == nullptr) throw Failure("no dialog");
        const QString path = QString::fromStdString((folder.path() / name).string());
        dialog->setOption(QFileDialog::DontUseNativeDialog);
        emit dialog->fileSelected(path);
        delete dialog;
        return QString::fromStdString(test::readBytes(folder.path() / name));
    };
    EXPECT_TRUE(saved("Сохранить точки", "a.csv").contains("точка;5;5;;;#ff0000\r\n"));
    EXPECT_TRUE(saved("Сохранить как .svg", "a.svg").contains("fill=\"#ff0000\"/>"));
    for (const char* ending : {".png", ".bmp"}) {
        saved((std::string("Сохранить как ") + ending).c_str(), (std::string("a") + ending).c_str());
        const QImage back(QString::fromStdString((folder.path() / (std::string("a") + ending)).string()));
        EXPECT_EQ(back.pixel(300, 100), qRgb(255, 0, 0)) << ending;
    }
    QString told;
    EXPECT_EQ(saved("Сохранить как .png", "nowhere/a.png"), "");
    if (auto* box = window->findChild<QMessageBox*>()) told = box->text();
    EXPECT_TRUE(told.startsWith("Файл не записан"));
}

TEST_F(WindowTools, TheRightButtonStaysWithTheFormThatUsesIt) {
    auto* other = find<QWidget>("Picture1");
    openMenuOf(other, {20, 20});
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    openMenuOf(other, {20, 20}, Qt::ShiftModifier);
    menu()->close();
}

TEST_F(WindowTools, TablesAreCopiedAsTextForASpreadsheet) {
    auto* cell = find<QLineEdit>("Text5");
    cell->setFocus();
    cell->selectAll();
    QTest::keyClicks(cell, "30,1");  // still being typed
    openMenuOf(cell, {3, 3});
    choose("Копировать таблицу");
    EXPECT_EQ(QApplication::clipboard()->text(), "i\tV, км/с\n1\t30,1\n");
    EXPECT_EQ(form->Text5.text(), "30,1");

    window->activateWindow();
    find<QLineEdit>("Text1")->setFocus();
    form->Text2.setText("итог\r\nв две строки");
    QTest::keyClick(find<QLineEdit>("Text1"), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QApplication::clipboard()->text(),
              "V & W, км/с\t19,4\tИтог\tитог  в две строки\n- A & B\tнет\n");

    // And back: a block fills the cells from the chosen one on.
    QApplication::clipboard()->setText("2\t31,5\t9\r\n7\n");
    auto* first = find<QLineEdit>("Text4");
    first->setFocus();
    QTest::keyClick(first, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form->Text4.text() + " " + form->Text5.text(), "2 31,5");
    QCoreApplication::processEvents();
    EXPECT_EQ(first->text(), "2");
    QApplication::clipboard()->setText("8");
    first->selectAll();
    QTest::keyClick(first, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(first->text() + "," + find<QLineEdit>("Text5")->text(), "8,31,5");
}

TEST_F(WindowTools, WindowsAreListedAndTurnedToByKeys) {
    struct Plain final : Form {
        explicit Plain(Desk& d) : Form(d, "Form2", "Вторая & последняя") {}
        TextField Text1{this, {.name = "Text1", .label = "x"}};
    };
    desk.add("Form2", [this] { return std::make_unique<Plain>(desk); });
    desk.show("Form2");
    FormWindow* second = screen.windowOf(desk.form("Form2"));
    EXPECT_EQ(openWindows(), (std::vector<QMainWindow*>{window, second}));
    QString asked;
    screen.onHelp([&](const Form& asking) { asked = QString::fromStdString(asking.name()); });

    const auto keys = [](QWidget* on, int key, Qt::KeyboardModifiers with) {
        on->activateWindow();
        QCoreApplication::processEvents();
        QTest::keyClick(on, static_cast<Qt::Key>(key), with);
        QCoreApplication::processEvents();
        return QApplication::activeWindow();
    };
    EXPECT_EQ(keys(window, Qt::Key_2, Qt::ControlModifier), second);
    EXPECT_EQ(keys(window, Qt::Key_1, Qt::ControlModifier), window);  // no form has this number
    EXPECT_EQ(keys(window, Qt::Key_Tab, Qt::ControlModifier), second);
    EXPECT_EQ(keys(second, Qt::Key_Tab, Qt::ControlModifier), window);
    keys(second, Qt::Key_F1, {});
    EXPECT_EQ(asked, "Form2");

    keys(window, Qt::Key_F6, {});
    ASSERT_EQ(menu()->actions().size(), 2);
    EXPECT_TRUE(menu()->actions()[0]->isChecked());
    EXPECT_EQ(menu()->actions()[1]->text(), "2.  Вторая && последняя\tCtrl+2");
    second->showMinimized();
    choose("2.  Вторая");
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeWindow(), second);
    EXPECT_FALSE(second->isMinimized());
    EXPECT_EQ(&desk.form("Form2"), second->form());
    desk.unload("Form2");
    EXPECT_EQ(openWindows(), (std::vector<QMainWindow*>{window}));
}

TEST_F(WindowTools, AWindowComesBackWhereItWas) {
    window->setGeometry(37, 41, 700, 600);
    QCoreApplication::processEvents();
    const QRect place = window->geometry();
    desk.unload("Bench");
    desk.show("Bench");
    EXPECT_EQ(screen.windowOf(desk.get<test::BenchForm>())->geometry(), place);
    test::forgetPlaces();
}

}  // namespace tarvex
