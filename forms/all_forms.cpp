#include "forms/form1.h"
#include "forms/form10.h"
#include "forms/form11.h"
#include "forms/form12.h"
#include "forms/form13.h"
#include "forms/form14.h"
#include "forms/form15.h"
#include "forms/form16.h"
#include "forms/form17.h"
#include "forms/form18.h"
#include "forms/form19.h"
#include "forms/form2.h"
#include "forms/form20.h"
#include "forms/form21.h"
#include "forms/form22.h"
#include "forms/form23.h"
#include "forms/form24.h"
#include "forms/form25.h"
#include "forms/form26.h"
#include "forms/form3.h"
#include "forms/form4.h"
#include "forms/form5.h"
#include "forms/form6.h"
#include "forms/form7.h"
#include "forms/form8.h"
#include "forms/form9.h"
#include "forms/laboratory.h"

namespace tarvex {

namespace {

/// The form F under its own name.
template <class F>
void add(Laboratory& lab) {
    lab.desk.add(F::formName, [&lab] { return std::make_unique<F>(lab); });
}

}  // namespace

void addForms(Laboratory& lab) {  // in the order of their numbers, the order in which exit unloads them
    add<Form1>(lab);
    add<Form2>(lab);
    add<Form3>(lab);
    add<Form4>(lab);
    add<Form5>(lab);
    add<Form6>(lab);
    add<Form7>(lab);
    add<Form8>(lab);
    add<Form9>(lab);
    add<Form10>(lab);
    add<Form11>(lab);
    add<Form12>(lab);
    add<Form13>(lab);
    add<Form14>(lab);
    add<Form15>(lab);
    add<Form16>(lab);
    add<Form17>(lab);
    add<Form18>(lab);
    add<Form19>(lab);
    add<Form20>(lab);
    add<Form21>(lab);
    add<Form22>(lab);
    add<Form23>(lab);
    add<Form24>(lab);
    add<Form25>(lab);
    add<Form26>(lab);
}

}  // namespace tarvex
