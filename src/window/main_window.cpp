#include "window/main_window.h"

#include <chrono>

namespace brovin::window {
namespace {

/// How often the frame around the chosen tab moves.
constexpr std::chrono::milliseconds kFrameInterval{150};

} // namespace

MainWindow::MainWindow(const Needs& needs) : needs_(needs) {
    ui::FrmOptions& form = needs_.form;
    for (std::size_t i = 0; i < ui::FrmOptions::kTabs; ++i) {
        const auto choose = [this, i] { imgTabs_Click(static_cast<int>(i)); };
        form.imgTabs[i].click = choose;
        form.lblTabs[i].click = choose;
        form.imgTabs[i].mouseMove = [this, i] { imgTabs_MouseMove(i); };
        form.picTab[i].mouseMove = [this] { resetPictures(); };
        form.picTab[i].setVisible(i == 0);
    }
    form.Picture1.mouseMove = [this] { resetPictures(); };
    form.window.mouseMove = [this] { resetPictures(); };
    form.cmdHelp.mouseMove = [this] { cmdHelp_MouseMove(); };
    form.cmdExit.mouseMove = [this] { cmdExit_MouseMove(); };
    form.lineTimer.setInterval(kFrameInterval);
    form.lineTimer.tick = [this] { lineTimer_Timer(); };
    form.window.resize = [this] { Form_Resize(); };
    form.window.close = [this] { Form_Close(); };
    form.cmdHelp.click = [this] { cmdHelp_Click(); };
    form.mHelp.click = [this] { cmdHelp_Click(); };
    form.mPopRestore.click = [this] { mPopRestore_Click(); };
    form.imgLogo.click = [this] { imgLogo_Click(); };
    form.lblFeedback.click = [this] { lblFeedback_Click(); };
}

bool MainWindow::imgTabs_Click(int tab) {
    ui::FrmOptions& form = needs_.form;
    if (tab < 0 || static_cast<std::size_t>(tab) >= ui::FrmOptions::kTabs)
        return false;
    const auto chosen = static_cast<std::size_t>(tab);
    for (std::size_t i = 0; i < ui::FrmOptions::kTabs; ++i) {
        form.lblTabs[i].setBold(i == chosen);
        form.lblTabs[i].setHighlighted(i == chosen);
        if (i != chosen)
            form.picTab[i].setVisible(false);
    }
    form.picTab[chosen].setVisible(true);
    needs_.settings.write(settings::setting::kTab, std::to_string(tab));
    return true;
}

void MainWindow::imgTabs_MouseMove(std::size_t tab) {
    needs_.form.imgTabs[tab].setPicture("img" + std::to_string(tab) + "d");
}

void MainWindow::resetPictures() {
    for (std::size_t i = 0; i < ui::FrmOptions::kTabs; ++i)
        needs_.form.imgTabs[i].setPicture("img" + std::to_string(i));
    needs_.form.cmdHelp.setPicture("help");
    needs_.form.cmdExit.setPicture("close");
}

void MainWindow::lineTimer_Timer() {
    if (needs_.form.window.visible())
        needs_.form.tabFrame.advance();
}

void MainWindow::trayMouse(TrayMouse event) {
    if (event == TrayMouse::RightUp) {
        needs_.shell.setForegroundWindow();
        popUpMenu();
        return;
    }
    mPopRestore_Click();
}

void MainWindow::mPopRestore_Click() {
    needs_.form.window.setState(ui::WindowState::Normal);
    needs_.form.window.setVisible(true);
    needs_.shell.setForegroundWindow();
}

void MainWindow::Form_Resize() {
    // Without an icon to click, a hidden window could not be brought back: it stays in the task bar.
    if (needs_.form.window.state() == ui::WindowState::Minimized && needs_.tray.available())
        needs_.form.window.setVisible(false);
}

void MainWindow::Form_Close() {
    needs_.form.window.setState(ui::WindowState::Minimized);
}

void MainWindow::cmdHelp_Click() {
    open("brovin.chm");
}
void MainWindow::imgLogo_Click() {
    open("kestrelworks.url");
}
void MainWindow::lblFeedback_Click() {
    open("feedback.url");
}

void MainWindow::open(const char* document) {
    const std::string path = needs_.folder.path(document);
    if (!needs_.shell.openDocument(path))
        notOpened(path);
}

} // namespace brovin::window
