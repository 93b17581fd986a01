#include "forms/session_steps.h"

namespace tarvex {

std::set<std::string> sessionSteps() {
    return {
        "Form1.Command3",   "Form1.Command12",  "Form1.Command2",  // elements, initial data, centre to origin
        "Form1.Command16",  "Form1.Command1",                      // velocity of the Sun, over to the model
        "Form4.Command1",                                          // velocity of the system
        "Form6.Command6",                                          // the series of orbit elements
        "Form13.Command4",  "Form13.Command1",                     // a plan on observations
        "Form15.Command5",  "Form15.Command14", "Form15.Command4",  // a plan on the model, observed shifts
        "Form17.Command1",                                          // ET-UT
        "Form18.Command14",                                         // a plan of the workshop
        "Form19.Command4",                                          // weights
        "Form20.Command6",                                          // Moon and Earth
        "Form21.Command1",  "Form22.Command1",  "Form22.Command3",  // periodic terms
        "Form23.Command1",                                          // laws of gravity
        "Form25.Command7",  "Form25.Command6",  "Form26.Command1",  // two bodies
    };
}

}  // namespace tarvex
