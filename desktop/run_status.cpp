#include "desktop/run_status.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QTime>
#include <algorithm>
#include <cmath>

namespace tarvex {

namespace {
constexpr double longestForecast = 100 * 86400.0;  ///< beyond it the expected end is left out
}

QString clockText(double seconds) {
    const auto all = static_cast<qint64>(std::max(0.0, seconds));
    const qint64 hours = all / 3600, minutes = all / 60 % 60;
    const QString tail = QString("%1").arg(all % 60, 2, 10, QChar('0'));
    if (hours == 0) return QString("%1:%2").arg(minutes).arg(tail);
    return QString("%1:%2:%3").arg(hours).arg(minutes, 2, 10, QChar('0')).arg(tail);
}

RunStatus::RunStatus() : bar_(new QProgressBar), times_(new QLabel) {
    auto* box = new QHBoxLayout(this);
    box->setContentsMargins(12, 0, 6, 0);  // off the hint beside it
    box->addWidget(times_);
    box->addWidget(bar_);
    bar_->setRange(0, 1000);
    bar_->setFixedWidth(180);
    bar_->setFixedHeight(times_->sizeHint().height());
    bar_->hide();
}

void RunStatus::set(double share) {
    const auto now = Clock::now();
    const auto gone = [&] { return std::chrono::duration<double>(now - began_).count(); };
    if (!(share >= 0)) {
        if (running_) times_->setText("Счет занял " + clockText(gone()));
        running_ = false;
        bar_->hide();
        return;
    }
    const bool endless = std::isinf(share);
    share = endless ? 0 : std::min(share, 1.0);
    if (!running_ || share < firstShare_) {
        running_ = true;
        firstShare_ = share;
        began_ = now;
    }
    bar_->setVisible(!endless);
    bar_->setValue(static_cast<int>(std::lround(share * 1000)));
    QString text = (endless ? "идет счет, прошло " : "прошло ") + clockText(gone());
    if (share > firstShare_) {
        const double left = gone() * (1 - share) / (share - firstShare_);
        if (left < longestForecast) {
            const auto end = QDateTime::currentDateTime().addSecs(static_cast<qint64>(left));
            text += ", осталось " + clockText(left) + ", конец " +
                    end.toString(left < 12 * 3600 ? "в HH:mm" : "dd.MM в HH:mm");
        }
    }
    times_->setText(text);
}

}  // namespace tarvex
