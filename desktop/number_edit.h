#pragma once
// A field of one line in which a number that is too long for it keeps its sign, its whole part and its
// exponent in sight: it is shown with fewer decimals and the mark of an omission until the field is entered.
// Then all of it is shown: the field grows over its neighbours until it is left.

#include <QLineEdit>
#include <functional>

namespace tarvex {

/// A number with as many decimals as fit; the text itself where it fits, is no number with decimals, or
/// nothing helps.
QString shownNumber(const QString& text, const std::function<bool(const QString&)>& fits);

class NumberEdit final : public QLineEdit {
public:
    NumberEdit();
    /// The width, in pixels, that a layout gives the field.
    void setLayoutWidth(int width);
    QSize sizeHint() const override { return {layoutWidth_, QLineEdit::sizeHint().height()}; }
    QSize minimumSizeHint() const override { return {layoutWidth_, QLineEdit::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QRect textRoom() const;
    void fit();
    void placed();

    int layoutWidth_ = 0;
    QRect home_;            ///< where the layout has put the field
    bool fitting_ = false;  ///< the field moves itself
};

}  // namespace tarvex
