#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "data/lottery_catalog.h"
#include "shell/fake_reports.h"
#include "shell/qt_test_support.h"
#include "shell/report_window.h"
#include "shell/session.h"
#include "support/test_support.h"

namespace numarel::testing {

// A program folder of its own (data\ with one lottery, Numarel\ selecting it, help\ with a few
// pages), a scripted platform and report windows over the fake reports.
class ShellTest : public ::testing::Test {
protected:
    void SetUp() override {
        App();
        FakeReports::Reset();
        folder.root = dir.path() / "prog";
        std::filesystem::create_directories(folder.DataDir());
        std::filesystem::create_directories(folder.HelpDir());
        WriteFile(folder.DataDir() / "Demo.txt",
                  "2020001 1 1 3\r\n2020002 4 5 6\r\n2020003 7 7 9\r\n");
        WriteSelection(folder.SelectionFile(), "Demo.txt");
        for (const char* page :
             {"Numarelbook", "New_Lottery", "Sum_012_Type-Width_012_Type", "Edit_Drawings"})
            WriteFile(folder.HelpPage(page), "<html></html>");
        session = std::make_unique<Session>(
            Session{folder, scripted.platform, folder.DataDir() / "Demo.txt", "Lottery:Demo."});
        reports = std::make_unique<ReportWindows>(*session, &FakeReports::Find);
    }
    void TearDown() override {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->inherits("numarel::ReportWindow") || w->inherits("numarel::MainWindow") ||
                w->inherits("numarel::ScoreboardWindow"))
                w->close();
        Drain();
    }

    // Opens the report window of `object` as its menu entry does. One that cannot load ends the
    // test with a failure (the exception is caught and reported by the test runner).
    ReportWindow* Open(std::string_view object) {
        ReportWindow* window = reports->Open(object, nullptr);
        if (!window) throw std::runtime_error("cannot open " + std::string(object));
        QCoreApplication::processEvents();
        return window;
    }

    static void WriteFile(const std::filesystem::path& path, std::string_view bytes) {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream out(path, std::ios::binary);
        out << bytes;
    }

    TempDir dir;
    ProgramFolder folder;
    ScriptedPlatform scripted;
    std::unique_ptr<Session> session;
    std::unique_ptr<ReportWindows> reports;
};

}  // namespace numarel::testing
