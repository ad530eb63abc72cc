#pragma once

#include "app/program.h"
#include "fakes/fake_downloads.h"
#include "fakes/fake_machine.h"
#include "fakes/test_language.h"

namespace brovin::app {

/// The whole program on a machine in memory.
struct ProgramWorld : fakes::FakeMachine, fakes::FakeUpdates {
    explicit ProgramWorld(bool asksForUpdates = true, platform::Surroundings* around = nullptr)
        : program({settings, files, landmarks, folder, dialogs, shell, tray, clipboard, characters, logOn,
                   instance, scanLock, regional, letters, clock, random, pump,
                   asksForUpdates ? &machine : nullptr, around},
                  {"Brovin", 2, 7, 106}, "/opt/brovin") {
        folder.files["default.blp"] = fakes::testLanguage();
        clock.time = std::chrono::local_days(std::chrono::year(2026) / 11 / 21) + std::chrono::hours(10) +
                     std::chrono::minutes(5);
    }
    Program program;
    ui::FrmOptions& form = program.frmOptions();
};

} // namespace brovin::app
