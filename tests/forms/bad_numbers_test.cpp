// Numbers that no form can work with: they end in its message and reach neither the shared state nor a file.

#include "runtime/form.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex::test {

class BadNumbers : public LabTest {};

// A speed of the system that is no number in m/s is refused before it reaches the bodies, not only in the
// end.
TEST_F(BadNumbers, NoNumberReachesTheState) {
    const struct {
        const char *form, *field, *command;
    } cases[] = {{"Form1", "", "Command13"},
                 {"Form2", "", "Command1"},
                 {"Form7", "Text3", "Command1"},
                 {"Form20", "Text44", "Command1"},
                 {"Form25", "Text31", "Command1"}};
    for (const auto& [name, field, command] : cases) {
        SCOPED_TRACE(name);
        lab.desk.show("Form1");
        lab.desk.show(name);
        Form& form = lab.desk.form(name);
        lab.s.VXsys = 1e306;  // km/s: in m/s beyond all numbers
        if (auto* typed = dynamic_cast<TextField*>(form.find(field))) typed->setText("1e306");
        if (auto* added = dynamic_cast<CheckBox*>(form.find("Check3"))) added->set(true);
        screen.messages.clear();
        dynamic_cast<CommandButton&>(*form.find(command)).press();
        EXPECT_EQ(screen.messages.size(), 1u);
        for (int i = 0; i < bodies; ++i)
            EXPECT_TRUE(std::isfinite(lab.s.VX[i]) && std::isfinite(lab.s.VY[i])) << i;
    }
}

// Form2 goes on with the body that another form has chosen: there must be such a body.
TEST_F(BadNumbers, NoBodyOutsideTheRowsIsChosen) {
    lab.desk.show("Form1");
    for (const char* typed : {"32767", "-1", "12"}) {
        dynamic_cast<TextField&>(*lab.desk.form("Form24").find("Text11")).setText(typed);
        dynamic_cast<CommandButton&>(*lab.desk.form("Form24").find("Command1")).press();
        dynamic_cast<TextField&>(*lab.desk.form("Form10").find("Text1")).setText(typed);
        dynamic_cast<CommandButton&>(*lab.desk.form("Form13").find("Command1")).press();
        EXPECT_GE(lab.s.IplSel, 0) << typed;
        EXPECT_LE(lab.s.IplSel, rowMoon) << typed;
    }
}

}  // namespace tarvex::test
