#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "frame/report_sheet.h"

namespace numarel {

// The ways numarel-cli writes a sheet.
enum class SheetFormat { Text, Csv, Html, Json, Pdf };

// Parses "text", "csv", "html", "json" or "pdf"; false for anything else.
bool ParseSheetFormat(std::string_view name, SheetFormat& format);

// A readable table for a terminal: the visible columns (a column narrower than 100 twips is a
// divider or a store and is left out), the header, the rows of the last `tail` drawings, the next
// drawing's row and any footer rows. Control characters in a text are shown as "?".
std::string FormatSheetText(const ReportSheet& sheet, int tail);

// Every cell's text, one line per row, RFC 4180 quoting. A text that a spreadsheet would run as a
// formula (one that starts with "=", "+", "@", a tab or a carriage return, or with "-" and is not a
// plain number) is written after a single quote; numbers, negative ones too, stay numbers.
std::string FormatSheetCsv(const ReportSheet& sheet);

// A standalone page that shows the sheet with its colours; the header row and the label column
// stay in place while scrolling.
std::string FormatSheetHtml(const ReportSheet& sheet, std::string_view report);

// The exchange format read by tools outside the program:
// {"report", "title", "rows", "cols", "colWidths", "rowHeights", "gridColour", "cells": [[row, col,
// text, back, fore], ...]} with colours as "#rrggbb" or null for the default; "gridColour" only
// where the sheet has grid lines of its own colour.
std::string FormatSheetJson(const ReportSheet& sheet, std::string_view report);

// The same, written to `out` as they are made, a block at a time: a sheet of millions of cells
// never exists as one document in memory.
void WriteSheetCsv(const ReportSheet& sheet, std::ostream& out);
void WriteSheetHtml(const ReportSheet& sheet, std::string_view report, std::ostream& out);
void WriteSheetJson(const ReportSheet& sheet, std::string_view report, std::ostream& out);
// One of them, by `format`; `tail` is for the text format only (a PDF takes the newest drawings
// that fill one page).
void WriteSheet(const ReportSheet& sheet, SheetFormat format, std::string_view report, int tail,
                std::ostream& out);

// A block of cells, rows `top` to `bottom` and columns `left` to `right` (inclusive, clipped to
// the sheet), as tab-separated lines in UTF-8; a formula cell gets the single quote as in CSV.
std::string FormatRangeTsv(const ReportSheet& sheet, int top, int left, int bottom, int right);
// The same block as an HTML table that keeps the cells' colours when pasted into a spreadsheet.
std::string FormatRangeHtml(const ReportSheet& sheet, int top, int left, int bottom, int right);
// The same for the cells where the rows `rows` cross the columns `cols`, in the order given (rows
// and columns outside the sheet are left out): a block without its hidden columns, or with the
// header row and label column put in front.
std::string FormatCellsTsv(const ReportSheet& sheet, const std::vector<int>& rows,
                           const std::vector<int>& cols);
std::string FormatCellsHtml(const ReportSheet& sheet, const std::vector<int>& rows,
                            const std::vector<int>& cols);

// Cell texts are UTF-8 as the reports write them; a text that is not (bytes of a drawings file)
// is taken one character a byte.
std::string SheetTextToUtf8(std::string_view text);

}  // namespace numarel
