#include "forms/file_tree_form.h"
#include "forms/help_form.h"
#include "forms/help_text.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

using HelpForms = test::LabTest;

TEST_F(HelpForms, EveryVisibleControlHasAHintOfOneLine) {
    for (const std::string& name : lab.desk.names()) {
        const auto form = lab.desk.describe(name);
        for (const Control* control : form->controls()) {
            if (!control->visible()) continue;
            EXPECT_FALSE(control->hint().empty()) << name << "." << control->name();
            EXPECT_EQ(control->hint().find('\n'), std::string::npos) << name << "." << control->name();
            EXPECT_EQ(control->hint().find("не готова"), std::string::npos) << name << "." << control->name();
        }
    }
    EXPECT_FALSE(lab.desk.anyLoaded());  // describing loads nothing
}

TEST_F(HelpForms, EachFormHasItsPurposeItsPageAndIsFoundInTheList) {
    auto& help = lab.desk.get<HelpForm>();
    help.formList.choose();
    const std::string list = help.pageText.text();
    for (const std::string& name : lab.desk.names()) {
        const int number = formNumber(name);
        EXPECT_TRUE(std::any_of(
            help::formTexts.begin(), help::formTexts.end(),
            [&](const help::FormText& text) { return text.number == number && !text.purpose.empty(); }))
            << name;
        EXPECT_NE(list.find("Форма " + std::to_string(number) + ". "), std::string::npos) << name;
        help.formPage(number).choose();
        const auto form = lab.desk.describe(name);
        for (const Control* control : form->controls())
            if (control->visible()) {
                EXPECT_NE(help.pageText.text().find(control->hint()), std::string::npos)
                    << name << "." << control->name();
            }
    }
    EXPECT_NE(list.find("Открывает \"К моделированию\" формы 1"), std::string::npos);
}

TEST_F(HelpForms, SearchShowsOnlyWhatMatches) {
    auto& help = lab.desk.get<HelpForm>();
    const std::string road = help.pageText.text();
    const auto search = [&](const char* words) {
        help.searchWords.setText(words);
        help.search.press();
        return help.pageText.text();
    };
    const std::string found = search("НАЧАЛЬНЫЕ рассчитать command12");  // in whatever case, all words
    EXPECT_NE(found.find("[Command12]"), std::string::npos);
    EXPECT_EQ(found.find("[Command9]"), std::string::npos);
    EXPECT_TRUE(found.starts_with("Найдено мест: 1\n")) << found;
    EXPECT_NE(search("долготы перигелием").find("Долгота перигелия, градусы"), std::string::npos);
    EXPECT_EQ(search("  фывапролдж "), "Ничего не найдено: фывапролдж");
    EXPECT_EQ(search(" "), road);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(HelpForms, MapCountsWhatLiesOnTheDisk) {
    test::writeBytes(folder.path() / "Dat/Tarvex2.dat", "12");
    test::writeBytes(folder.path() / "Dat/Tarvex10.dat", "12");
    test::writeBytes(folder.path() / "Dat/.gitkeep", "");
    auto& form = lab.desk.get<FileTreeForm>();
    EXPECT_EQ(form.fileCounts(2).text(), "2 файла");
    EXPECT_EQ(form.fileCounts(12).text(), "нет папки");  // Arhiv is not there
    const std::string text = form.listing.text();
    EXPECT_LT(text.find("Tarvex2.dat"), text.find("Tarvex10.dat"));
    EXPECT_NE(text.find("Tarvex10.dat   1 кБ - элементы и начальные данные"), std::string::npos) << text;
    EXPECT_EQ(text.find(".gitkeep"), std::string::npos);

    test::writeBytes(folder.path() / "JPL/ascp1960.405", "x");
    form.readAgain.press();
    EXPECT_EQ(form.fileCounts(3).text(), "1 файл");
}

}  // namespace tarvex
