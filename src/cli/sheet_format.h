#pragma once

#include <string>
#include <string_view>

#include "frame/report_sheet.h"

namespace numarel {

// The ways numarel-cli writes a sheet.
enum class SheetFormat { Text, Csv, Html, Json };

// Parses "text", "csv", "html" or "json"; false for anything else.
bool ParseSheetFormat(std::string_view name, SheetFormat& format);

// A readable table for a terminal: the visible columns (a column narrower than 100 twips is a
// divider or a store and is left out), the header, the rows of the last `tail` drawings, the next
// drawing's row and any footer rows.
std::string FormatSheetText(const ReportSheet& sheet, int tail);

// Every cell's text, one line per row, RFC 4180 quoting.
std::string FormatSheetCsv(const ReportSheet& sheet);

// A standalone page that shows the sheet with its colours; the header row and the label column
// stay in place while scrolling.
std::string FormatSheetHtml(const ReportSheet& sheet, std::string_view report);

// The exchange format read by tools outside the program:
// {"report", "title", "rows", "cols", "colWidths", "rowHeights", "gridColour", "cells": [[row, col,
// text, back, fore], ...]} with colours as "#rrggbb" or null for the default; "gridColour" only
// where the sheet has grid lines of its own colour.
std::string FormatSheetJson(const ReportSheet& sheet, std::string_view report);

// Cell texts are UTF-8 as the reports write them; a text that is not (bytes of a drawings file)
// is taken one character a byte.
std::string SheetTextToUtf8(std::string_view text);

}  // namespace numarel
