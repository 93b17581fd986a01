#pragma once
// How far a long run is: share done, time gone, time still to go.

#include <QWidget>
#include <chrono>

class QLabel;
class QProgressBar;

namespace tarvex {

class RunStatus final : public QWidget {
public:
    RunStatus();
    /// @param share  done, 0..1; infinite where nobody knows the end; below 0 the run is over, its time stays
    void set(double share);

private:
    using Clock = std::chrono::steady_clock;

    QProgressBar* bar_;
    QLabel* times_;
    bool running_ = false;
    double firstShare_ = 0;  ///< where the run began: a continued one does not begin at 0
    Clock::time_point began_;
};

/// "0:07", "12:30", "3:04:09"
QString clockText(double seconds);

}  // namespace tarvex
