#pragma once

#include <span>
#include <string_view>

namespace numarel {

// A group button of the main window and the popup menu it shows.
struct GroupButton {
    std::string_view control;      // "Command3"
    std::string_view caption;      // "Box Pairs"
    std::string_view menu;         // "cailiangmayg"
    std::string_view menuCaption;  // never on screen
};

// One entry of a group's popup menu: a report command or a separator.
struct CommandEntry {
    std::string_view menu;      // the group's menu name
    std::string_view control;   // "cai3dliangma"; empty for a separator
    std::string_view caption;   // as shown on screen
    std::string_view report;    // the report's window object
    std::string_view helpPage;  // page name for the report's Help button; empty: none
    bool wait = false;          // the main window shows the hourglass while the report loads
    bool IsSeparator() const { return control.empty(); }
};

// The eight group buttons, top to bottom.
std::span<const GroupButton> GroupButtons();

// Every menu entry of every group, in menu order, separators included.
std::span<const CommandEntry> CommandTable();

// The entries of one group's menu, in order.
std::span<const CommandEntry> MenuEntries(std::string_view menu);

// The entry that opens `report`; nullptr when there is none.
const CommandEntry* FindCommand(std::string_view report);

// The group button whose menu holds `menu`; nullptr when there is none.
const GroupButton* FindGroup(std::string_view menu);

}  // namespace numarel
