#include "app/schedule_options.h"

#include "text/numbers.h"
#include "text/strings.h"

namespace brovin::app {

namespace setting = settings::setting;

void ScheduleOptions::optDaily_Click() {
    needs_.form.optWeekly.setValue(false);
    needs_.settings.write(setting::kWeekly, "0");
    needs_.form.dtpBackup.setCustomFormat("h:mm tt");
}

void ScheduleOptions::optWeekly_Click() {
    needs_.form.optDaily.setValue(false);
    needs_.settings.write(setting::kWeekly, "1");
    needs_.form.dtpBackup.setCustomFormat("h:mm tt ddd");
}

void ScheduleOptions::refreshReminderControls() {
    ui::FrmOptions& form = needs_.form;
    const bool on = form.chkBackup.checked();
    for (ui::Control* control : std::initializer_list<ui::Control*>{
             &form.optWeekly, &form.optDaily, &form.dtpBackup, &form.txtReminder, &form.chkMsgBox})
        control->setEnabled(on);
    form.cmdSpeak.setEnabled(on && form.chkAgent.enabled()); // only a character can try it out
}

void ScheduleOptions::txtReminder_Change() {
    if (!needs_.form.txtReminder.text().empty())
        needs_.settings.write(setting::kReminder, needs_.form.txtReminder.text());
}

void ScheduleOptions::dtpWord_Change() {
    ui::FrmOptions& form = needs_.form;
    const std::string tip = needs_.regional.longTime(form.dtpWord.value()) + " " +
                            text::replaceAll(form.chkWord.caption(), "&", "");
    form.dtpWord.setToolTip(tip);
    form.chkWord.setToolTip(tip);
}

void ScheduleOptions::chkWord_Click() {
    ui::FrmOptions& form = needs_.form;
    form.dtpWord.setEnabled(form.chkWord.checked());
    form.chkWordMsgBox.setEnabled(form.chkWord.checked());
}

void ScheduleOptions::txtInterval_Change() {
    ui::TextBox& interval = needs_.form.txtInterval;
    const double hours = text::leadingNumber(interval.text());
    const std::string valid = hours <= 0 ? "1" : text::numberText(hours);
    if (interval.text() != valid + ".") // which waits for the digits behind it
        interval.setText(valid);
    needs_.settings.write(setting::kInterval, valid);
}

} // namespace brovin::app
