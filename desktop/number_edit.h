#pragma once
// A field of one line in which a number that is too long for it keeps its sign, its whole part and its
// exponent in sight: it is shown with fewer decimals and the mark of an omission until the field is entered.

#include <QLineEdit>
#include <functional>

namespace tarvex {

/// A number with as many decimals as fit; the text itself where it fits, is no number with decimals, or
/// nothing helps.
QString shownNumber(const QString& text, const std::function<bool(const QString&)>& fits);

class NumberEdit final : public QLineEdit {
protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect textRoom() const;
};

}  // namespace tarvex
