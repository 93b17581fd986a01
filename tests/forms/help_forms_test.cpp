#include <set>

#include "forms/form1.h"
#include "forms/form3.h"
#include "forms/form5.h"
#include "forms/form9.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

using HelpForms = test::LabTest;

TEST_F(HelpForms, OpenFromTheirCommandsAndClose) {
    lab.desk.show("Form1");
    auto& form1 = lab.desk.get<Form1>();
    form1.Command8.press();
    form1.Command11.press();
    lab.desk.show("Form9");
    for (const char* name : {"Form3", "Form5", "Form9"}) {
        ASSERT_TRUE(lab.desk.isLoaded(name));
        static_cast<CommandButton*>(lab.desk.form(name).find("Command1"))->press();
        EXPECT_FALSE(lab.desk.isLoaded(name));
    }
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(HelpForms, TellEveryFormOfTheLaboratory) {
    const std::string forms = lab.desk.get<Form3>().Text2.text();
    for (const std::string& name : lab.desk.names())
        EXPECT_NE(forms.find("Форма " + name.substr(4) + " "), std::string::npos) << name;
}

TEST_F(HelpForms, PictureNamesTheAnglesInsideItsFrame) {
    auto& form = lab.desk.get<Form5>();
    std::set<std::string> texts;
    for (const test::Drawn& d : test::drawnOn(form.Picture1)) {
        EXPECT_GE(d.x, -1) << d.text;
        EXPECT_LE(d.x, form.Picture1.width() + 1) << d.text;
        EXPECT_GE(d.y, -1) << d.text;
        EXPECT_LE(d.y, form.Picture1.height() + 1) << d.text;
        if (d.kind == test::Drawn::Kind::Text) texts.insert(d.text);
    }
    for (const char* name : {"AlfaU", "AlfaP - AlfaU", "Betta", "Anom"})
        EXPECT_TRUE(texts.contains(name)) << name;
}

TEST_F(HelpForms, MapOfTheTreeHasItsCaptions) {
    auto& form = lab.desk.get<Form9>();
    EXPECT_EQ(form.title(), "Файловая система программы      Tarvex7m   -  форма 9");
    std::set<std::string> captions;
    for (const Control* control : form.controls()) captions.insert(control->caption());
    for (const char* name :
         {"Dat - ", "JPL - ", "NEW - ", "Ser - ", "Obs - ", "Tab - ", "Plan0 - ", "Plan1 - ", "Arhiv"})
        EXPECT_TRUE(captions.lower_bound(name) != captions.end() &&
                    captions.lower_bound(name)->starts_with(name))
            << name;
}

}  // namespace tarvex
