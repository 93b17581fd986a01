// Windows fit a small screen, and nothing in them is cut or covered, on any of their pages.

#include "desktop/window_places.h"
#include "tests/desktop/every_form.h"

namespace tarvex {

namespace {

constexpr QSize smallScreen(1280, 690);  ///< what a screen of 1280 x 720 leaves below the title of a window

struct Geometry : test::EveryForm {
    /// Does something on each page of each set of tabs, or once where there are none.
    void onEveryPage(const std::function<void()>& look) {
        bool tabs = false;
        for (auto* set : window().findChildren<QTabWidget*>())
            for (int page = 0; page < set->count(); ++page, tabs = true) {
                set->setCurrentIndex(page);
                QCoreApplication::processEvents();
                look();
            }
        if (!tabs) look();
    }
};

std::string nameOf(const QWidget& widget) {
    QString name = widget.objectName();
    if (const auto* label = qobject_cast<const QLabel*>(&widget); label != nullptr && name.isEmpty())
        name = "label " + label->text();
    return (name.isEmpty() ? QString(widget.metaObject()->className()) : name).toStdString();
}

/// Room for its words, or nothing to say against it.
bool isCut(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget); label != nullptr && label->wordWrap())
        return widget.height() < label->heightForWidth(widget.width());
    const QSize least = widget.sizeHint();
    if (qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
        qobject_cast<const QLabel*>(&widget) != nullptr || qobject_cast<const QTabBar*>(&widget) != nullptr)
        return widget.width() < least.width() || widget.height() < least.height();
    const QFontMetrics metrics(widget.font());
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        return group->width() < metrics.horizontalAdvance(QString(group->title()).replace("&&", "&"));
    if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) {
        const bool number = edit->alignment().testFlag(Qt::AlignRight);  // words may be longer
        return edit->height() < metrics.height() + 2 ||
               (number && edit->width() < metrics.horizontalAdvance(edit->text()) + 8);
    }
    return false;
}

bool isSeen(const QWidget* widget) {
    return widget->isVisible() && !widget->isWindow() && !widget->size().isEmpty();
}

/// What lies in a widget lies inside it and side by side.
void expectTidy(const QWidget& widget) {
    const auto inside = widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (int i = 0; i < inside.size(); ++i) {
        if (!isSeen(inside[i])) continue;
        EXPECT_TRUE(widget.rect().contains(inside[i]->geometry())) << nameOf(*inside[i]) << " sticks out";
        for (int k = 0; k < i; ++k) {
            const bool covers = isSeen(inside[k]) && inside[i]->geometry().intersects(inside[k]->geometry());
            EXPECT_FALSE(covers) << nameOf(*inside[i]) << " over " << nameOf(*inside[k]);
        }
    }
}

}  // namespace

TEST_P(Geometry, FitsASmallScreen) {
    const auto* area = qobject_cast<QScrollArea*>(window().centralWidget());
    ASSERT_NE(area, nullptr);
    const QSize least = area->widget()->minimumSizeHint() + QSize(0, window().statusBar()->height());
    EXPECT_LE(least.width(), smallScreen.width());
    EXPECT_LE(least.height(), smallScreen.height());
    EXPECT_LE(window().width(), smallScreen.width());
    EXPECT_LE(window().height(), smallScreen.height());
    EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
    EXPECT_FALSE(area->verticalScrollBar()->isVisible())
        << "needs " << area->widget()->minimumSizeHint().height() << " of " << area->viewport()->height();

    // also where a place was kept when the form was smaller
    QWidget before;
    before.setObjectName(window().objectName());
    before.resize(200, 150);
    rememberPlace(before);
    const WindowServices none;
    const FormWindow again(form(), none);
    EXPECT_GE(again.width(), least.width());
    EXPECT_GE(again.height(), least.height());
    test::forgetPlaces();
}

TEST_P(Geometry, NothingIsCutOrCovered) {
    const QSize opened = window().size();
    for (const QSize size : {opened, QSize(1900, 1000)}) {
        window().resize(size);
        QCoreApplication::processEvents();
        onEveryPage([&] {
            const QWidget* contents = qobject_cast<QScrollArea*>(window().centralWidget())->widget();
            for (QWidget* widget : contents->findChildren<QWidget*>()) {
                if (!isSeen(widget)) continue;
                EXPECT_FALSE(isCut(*widget)) << nameOf(*widget) << " " << widget->width() << "x"
                                             << widget->height() << " at width " << size.width();
                if (widget->layout() != nullptr && qobject_cast<QTabWidget*>(widget) == nullptr)
                    expectTidy(*widget);
            }
        });
    }
}

TEST_P(Geometry, LargeLettersOfTheDesktopAreKeptAndGetScrollBars) {
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(14);
    QApplication::setFont(large);
    const WindowServices none;
    FormWindow again(form(), none);
    again.show();
    QCoreApplication::processEvents();
    const auto* area = qobject_cast<QScrollArea*>(again.centralWidget());
    const QSize least = area->widget()->minimumSizeHint(), room = area->viewport()->size();
    EXPECT_GE(area->widget()->font().pointSizeF(), 11);
    EXPECT_LE(again.width(), again.screen()->availableSize().width());
    EXPECT_LE(again.height(), again.screen()->availableSize().height());
    EXPECT_EQ(area->verticalScrollBar()->isVisible(), least.height() > room.height());
    EXPECT_EQ(area->horizontalScrollBar()->isVisible(), least.width() > room.width());
    QApplication::setFont(usual);
}

INSTANTIATE_TEST_SUITE_P(Desk, Geometry, ::testing::ValuesIn(test::allForms()), test::nameOf);

}  // namespace tarvex
