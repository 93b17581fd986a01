#include "core/model_state.h"
#include "core/name_table.h"

namespace tarvex {

void addNames(NameTable& table, const ModelState& s) {
#define NAME(variable) table.add(#variable, s.variable)
    NAME(AlfaL); NAME(R0sr); NAME(W0sr); NAME(Eks0); NAME(Betta0); NAME(AlfaP0); NAME(AlfaU0); NAME(Aae);
    NAME(V0sr); NAME(ElemStart); NAME(X); NAME(Y); NAME(Z); NAME(VX); NAME(VY); NAME(VZ); NAME(X0);
    NAME(Y0); NAME(Z0); NAME(VX0); NAME(VY0); NAME(VZ0); NAME(XOld); NAME(YOld); NAME(ZOld); NAME(Mean);
    NAME(Anom); NAME(Rr); NAME(Uarg); NAME(Escr); NAME(Ekep); NAME(pKep); NAME(Vr); NAME(Vn); NAME(km);
    NAME(m); NAME(mSol); NAME(gamma); NAME(Diam); NAME(RSol); NAME(Tsid); NAME(kodPl); NAME(kodPair);
    NAME(NPlOn); NAME(NEqMax); NAME(ColorR); NAME(ColorG); NAME(ColorB); NAME(Lae); NAME(VXsys);
    NAME(VYsys); NAME(VZsys); NAME(Mx); NAME(JD); NAME(JD0); NAME(JDstart); NAME(JDepoha); NAME(JDet);
    NAME(JDut); NAME(JDut0); NAME(God0); NAME(Mes0); NAME(Den0); NAME(God); NAME(Mes); NAME(Den);
    NAME(GodR); NAME(MesR); NAME(DenR); NAME(ChasR); NAME(MinR); NAME(SekR); NAME(kodKalend);
    NAME(TimeZone); NAME(kodErrDate); NAME(KeyDate); NAME(DayMonth); NAME(TT); NAME(kET); NAME(JDt01);
    NAME(JDt02); NAME(Ipl); NAME(Ipl2); NAME(IplSel); NAME(IplJ); NAME(Icentr); NAME(kodMoon);
    NAME(kodBary); NAME(kodStop); NAME(NFile); NAME(NC); NAME(NC0); NAME(Dt); NAME(DtCur); NAME(kDt);
    NAME(NPlan); NAME(Lpl); NAME(Bpl); NAME(Rpl); NAME(Tsv); NAME(LonPl); NAME(LatPl); NAME(Rcur);
    NAME(DXcur); NAME(DYcur); NAME(DZcur); NAME(Rxycur);
    NAME(Mprec); NAME(Prec); NAME(Azim); NAME(Vys); NAME(TAU); NAME(ObsB); NAME(ObsL); NAME(GMST);
    NAME(LMST); NAME(kLl); NAME(kLp); NAME(Ipert1); NAME(Ipert2); NAME(NameData); NAME(TipData);
#undef NAME
#define CONSTANT(value) table.addComputed(#value, [](const std::vector<int>&) { return toFullText(value); })
    CONSTANT(MK); CONSTANT(Pi); CONSTANT(kUgol); CONSTANT(Vsv); CONSTANT(sekD); CONSTANT(sekG);
    CONSTANT(JD1900); CONSTANT(JD2000); CONSTANT(AlfaEclip); CONSTANT(NPlanetMax);
#undef CONSTANT
}

}  // namespace tarvex
