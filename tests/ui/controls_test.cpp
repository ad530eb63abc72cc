#include "ui/frm_options.h"

#include <gtest/gtest.h>

#include <set>

namespace brovin::ui {
namespace {

/// Counts how often something happens.
template <class Source>
int times(Source& event, const std::function<void()>& act) {
    int count = 0;
    event = [&count] { ++count; };
    act();
    event = std::function<void()>();
    return count;
}

TEST(Control, tellsItsObserversOfChangesOnly) {
    FrmOptions form;
    int changes = 0;
    form.cmdHelp.observe([&changes] { ++changes; });
    form.cmdHelp.setCaption("Help");
    form.cmdHelp.setCaption("Help");
    form.cmdHelp.setEnabled(true);
    form.cmdHelp.setPicture("help");
    EXPECT_EQ(2, changes);
    form.cmdHelp.click(); // nobody listens, and nothing happens
}

TEST(Form, findsItsControlsByTheirExactNames) {
    const FrmOptions form;
    EXPECT_EQ(&form.chkForce, form.find("chkForce"));
    EXPECT_EQ(&form.imgTabs[7], form.find("imgTabs7"));
    EXPECT_EQ(nullptr, form.find("chkforce"));
    EXPECT_EQ(nullptr, form.find(""));
    std::set<std::string> names;
    for (const Control* control : form.controls())
        EXPECT_TRUE(names.insert(control->name()).second) << control->name() << " stands twice";
}

TEST(CheckBox, clicksEvenWhenItsValueStays) {
    FrmOptions form;
    CheckBox& box = form.chkLog;
    EXPECT_EQ(2, times(box.click, [&] {
                  for (const int value : {1, 1, 2, -1})
                      EXPECT_EQ(value == 1, box.setValue(value));
              }));
    EXPECT_TRUE(box.checked());
}

TEST(OptionButton, clicksOnlyWhenItIsSwitchedOn) {
    FrmOptions form;
    EXPECT_EQ(2, times(form.optDaily.click, [&] {
                  for (const bool on : {true, true, false})
                      form.optDaily.setValue(on);
              }));
}

TEST(TextBox, tellsOfChangesOnly) {
    FrmOptions form;
    EXPECT_EQ(2, times(form.txtSay.change, [&] {
                  for (const std::string text : {"", "a", "a", ""})
                      form.txtSay.setText(text);
              }));
}

TEST(ListControl, clicksOnEachSelectionOfAnEntryThatExists) {
    FrmOptions form;
    ListBox& list = form.lstFiles;
    list.setItems({{"a", 7}, {"b", 8}});
    EXPECT_EQ("", list.selectedText());
    EXPECT_EQ(3, times(list.click, [&] {
                  for (const int index : {1, 1, 2, -2})
                      EXPECT_EQ(index == 1, list.select(index));
                  EXPECT_EQ("b", list.selectedText());
                  EXPECT_TRUE(list.select(ListBox::kNone));
              }));
    EXPECT_EQ("", list.selectedText());
}

TEST(ListControl, keepsTheSelectionAtItsEntry) {
    // Before it, behind it, and the selected entry itself
    for (const auto& [removed, selected] : {std::pair(0, 0), std::pair(2, 1), std::pair(1, ListBox::kNone)}) {
        FrmOptions form;
        ListBox& list = form.lstFiles;
        list.setItems({{"a", 0}, {"b", 0}, {"c", 0}});
        list.select(1);
        list.add({"d", 0});
        const auto revision = list.revision();
        EXPECT_EQ(0, times(list.click, [&list, gone = removed] { list.remove(gone); }));
        EXPECT_EQ(selected, list.selected()) << "without entry " << removed;
        EXPECT_NE(revision, list.revision());
    }
}

} // namespace
} // namespace brovin::ui
