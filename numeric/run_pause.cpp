#include "numeric/run_pause.h"

namespace tarvex {

RunPause::RunPause(const Experiment& e)
    : X_(e.s.X),
      Y_(e.s.Y),
      Z_(e.s.Z),
      VX_(e.s.VX),
      VY_(e.s.VY),
      VZ_(e.s.VZ),
      LonPl_(e.s.LonPl),
      Rr_(e.s.Rr),
      LatPl_(e.s.LatPl),
      Rcur_(e.s.Rcur),
      JD_(e.s.JD),
      JDjpl_(e.ephemeris.JDjpl),
      JDrec1_(e.ephemeris.JDrec1),
      Dt_(e.s.Dt),
      DtCur_(e.s.DtCur),
      IplSel_(e.s.IplSel),
      Icentr_(e.s.Icentr),
      NC0_(e.s.NC0),
      kDt_(e.s.kDt),
      NFile_(e.s.NFile) {}

void RunPause::end(const Experiment& e) const {
    ModelState& s = e.s;
    s.X = X_;
    s.Y = Y_;
    s.Z = Z_;
    s.VX = VX_;
    s.VY = VY_;
    s.VZ = VZ_;
    s.LonPl = LonPl_;
    s.Rr = Rr_;
    s.LatPl = LatPl_;
    s.Rcur = Rcur_;
    s.Dt = Dt_;
    s.DtCur = DtCur_;
    s.IplSel = IplSel_;
    s.Icentr = Icentr_;
    s.NC0 = NC0_;
    s.kDt = kDt_;
    s.NFile = NFile_;
    s.JD = e.ephemeris.JDjpl = JDjpl_;
    const bool moved = e.ephemeris.JDrec1 != JDrec1_ || !e.ephemeris.file;
    if (e.run.kodJPL2 == 1 && moved) DEOpen(s, e.ephemeris);
    s.JD = JD_;
}

}  // namespace tarvex
