#pragma once

#include <span>

#include "data/drawings_file.h"
#include "frame/report_sheet.h"

namespace numarel {

// Trend charts of the sums of a drawing's digits split into two classes: the sum of each class
// is written on its number line, so the rows form a moving trace.
void BuildSumOfOddSumOfEven(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildSumOfSmallSumOfBig(std::span<const DrawRecord> drawings, ReportSheet& sheet);
void BuildSumOfPrimeSumOfComposite(std::span<const DrawRecord> drawings, ReportSheet& sheet);
// The single number line of the sum of each digit's remainder by 5.
void BuildSumOfRemaindersBy5(std::span<const DrawRecord> drawings, ReportSheet& sheet);

}  // namespace numarel
