#pragma once
// The eclipse screen, Form16: eclipses, transits, rise and set as seen from one place, with a clock for the
// planets and a clock for the Earth's rotation.

#include <array>
#include <deque>

#include "forms/eclipse_controls.h"

#include "forms/laboratory.h"
#include "forms/picture_axes.h"
#include "reduction/ancient_tables.h"
#include "reduction/eclipse_log.h"

namespace tarvex {

class EclipseForm final : public EclipseControls {
public:
    static constexpr const char* formName = "Form16";
    explicit EclipseForm(Laboratory& lab);

    void load() override;
    void unload() override;

private:
    struct Mark {
        double x = 0, y = 0, radius = 0;
        int series = Plot::none;
    };
    /// The series of a row on the three pictures.
    struct RowMarks {
        BodySeries views;
        int sky = Plot::none, disk = Plot::none;
    };

    int theory() const;
    std::int32_t bodyTyped() const;
    void takeSettings();
    void chooseData(bool tables);
    void useFirstRelation();
    void chooseTable(int i);
    void readTable(bool correct);
    void start();
    bool takeMoment();
    void EclipseRun();
    void oneStep();
    void setClocks();
    void showPlaces();
    void tellCautions();
    void noteContacts();
    void noteRiseAndSet();
    void drawSky();
    void drawDisks();
    void drawBodies();
    void clearDisks();
    void drawDiskGrid();
    void tellAxes();
    void clearPictures();
    void nextDate();
    std::string clockText(double moment) const;

    Laboratory& lab;
    Eclipse e_;
    Contacts contacts_;
    TableInUse table_;  ///< the workbook of this form
    std::string startDay_, startMonth_, startYear_;
    std::int16_t kalend_ = 0;  ///< calendar of the date fields: 0 Gregorian, 1 Julian, 2 Egyptian
    double zone_ = 0;          ///< and their day start, hours
    int kodTimeDir = 1;        ///< 1: on in time, -1: back
    int kodRefresh = 0;        ///< 1: the disk plot is to be cleared, 2: it has been
    bool started_ = false, gone_ = false;
    RiseAndSet riseAndSet_;  ///< of the Sun's upper limb
    double greatest_ = 0;    ///< greatest magnitude since the start
    std::array<RowMarks, rowShadow + 1> marks_;
    Mark oldSun_, oldBody_, oldShadow_;
    std::deque<Mark> path_;  ///< of the body over the disk
};

}  // namespace tarvex
