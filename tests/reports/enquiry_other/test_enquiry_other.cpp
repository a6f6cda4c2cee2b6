#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "reports/enquiry_other/number_enquiry.h"
#include "reports/report_rows.h"
#include "support/test_support.h"

namespace numarel {
namespace {

using testing::Build;
using testing::Drawings;
using Texts = std::vector<std::string>;

// Each row starts its sums afresh.
TEST(DigitClassSums, RowsFollowTheFileAndTheNextRowStaysEmpty) {
    testing::CheckRows("reports/enquiry_other/rows.txt");
    auto sheet = Build("frmbjiouhe", Drawings({"135", "246", "000"}));
    EXPECT_EQ(testing::RowTexts(sheet, 4, 0, sheet.Cols() - 1), Texts(sheet.Cols()));
    EXPECT_EQ(sheet.CurrentRow(), 4);
}

using testing::RowTexts;

constexpr const char* kStraight = "frmzhixuanhaocx";
constexpr const char* kBox = "frmzuxuanhaocx";
constexpr int kKeyCol = 4;
constexpr int kFirstTicketCol = 5;

const NumberEnquiry& EnquiryOf(const char* object) {
    const NumberEnquiry* enquiry = FindNumberEnquiry(object);
    EXPECT_NE(enquiry, nullptr) << object;
    return *enquiry;
}

// Everything a user can see of a sheet, for comparing whole sheets.
Texts Snapshot(const ReportSheet& sheet) {
    Texts out{std::to_string(sheet.Rows()) + "x" + std::to_string(sheet.Cols()) + " top " +
              std::to_string(sheet.TopRow()) + " title " + sheet.Title()};
    for (int c = 0; c < sheet.Cols(); ++c)
        out.push_back("width " + std::to_string(sheet.ColWidth(c)));
    for (int r = 0; r < sheet.Rows(); ++r)
        for (int c = 0; c < sheet.Cols(); ++c)
            out.push_back(sheet.Text(r, c) + "|" + std::to_string(sheet.BackColor(r, c)) + "|" +
                          std::to_string(sheet.ForeColor(r, c)));
    return out;
}

// The tickets typed of a case: a text, or "tickets N" for N tickets 100, 101, ... and what follows.
std::string TypedText(const Texts& words) {
    if (words.empty() || words[0] != "tickets") return words.empty() ? "" : words[0];
    std::string text;
    for (int i = 0; i < std::stoi(words.at(1)); ++i)
        text += std::to_string(100 + i % 900) + "\r\n";
    return words.size() > 2 ? text + words[2] : text;
}

TEST(NumberEnquiry, OnlyTheDigitsOfTheTextCount) {
    EXPECT_EQ(TicketDigits("123,456"), "123456");
    for (const char* text : {"12 3456", "1\r\n2x3-45.6\t"}) {
        SCOPED_TRACE(text);
        auto sheet = Build(kStraight, Drawings({"456"}));
        ASSERT_EQ(Enquire(EnquiryOf(kStraight), text, sheet), std::nullopt);
        ASSERT_EQ(sheet.Cols(), 8);
        EXPECT_EQ(RowTexts(sheet, 0, kFirstTicketCol, 7), (Texts{"123", "456", "Gather"}));
        EXPECT_EQ(RowTexts(sheet, 1, kFirstTicketCol, 7), (Texts{"1", "***", "***"}));
    }
}

TEST(NumberEnquiry, TicketsHitWhereTheirNumberEqualsTheKey) {
    for (const testing::Case& c : testing::ReadCases("reports/enquiry_other/enquiries.txt")) {
        SCOPED_TRACE(c.where);
        auto sheet = Build(c.Text(0), Drawings({"312", "007", "123", "700", "123"}));
        ASSERT_EQ(Enquire(EnquiryOf(c.Text(0).c_str()), c.Text(1), sheet), std::nullopt);
        const int gatherCol =
            kFirstTicketCol + static_cast<int>(TicketDigits(c.Text(1)).size() / 3);
        ASSERT_EQ(sheet.Cols(), gatherCol + 1);
        ASSERT_EQ(sheet.Rows(), 11);
        EXPECT_EQ(sheet.Text(0, gatherCol), "Gather");
        EXPECT_EQ(sheet.ColWidth(gatherCol), 620);
        EXPECT_EQ(sheet.ColWidth(kFirstTicketCol), 372);
        Texts got;
        for (int r : {1, 2, 3, 4, 5, 7, 8, 9, 10})
            got.push_back(sheet.Text(r, c.Int(2)));
        EXPECT_EQ(got, c.Words(3));
        EXPECT_EQ(sheet.BackColor(10, gatherCol), MakeRgb(231, 225, 239));
        EXPECT_EQ(sheet.ForeColor(7, 1), MakeRgb(0, 0, 255));
    }
}

TEST(NumberEnquiry, ATextThatCannotBeEnquiredIsRefusedAndLeavesTheSheet) {
    for (const testing::Case& c : testing::ReadCases("reports/enquiry_other/refusals.txt")) {
        SCOPED_TRACE(c.where);
        const char* object = c.Text(0).c_str();
        const std::string text = TypedText(c.Words(1));
        // Before any enquiry and after one.
        for (bool enquiredBefore : {false, true}) {
            auto sheet = Build(object, Drawings({"123", "100"}));
            if (enquiredBefore) {
                ASSERT_EQ(Enquire(EnquiryOf(object), "100", sheet), std::nullopt);
            }
            const Texts before = Snapshot(sheet);
            auto said = Enquire(EnquiryOf(object), text, sheet);
            if (c.Text(2).empty()) {
                EXPECT_EQ(said, std::nullopt);
                const int tickets = static_cast<int>(TicketDigits(text).size() / 3);
                EXPECT_EQ(sheet.Cols(), kFirstTicketCol + tickets + 1);
                EXPECT_EQ(sheet.Text(1, kFirstTicketCol + 23), "***");  // the ticket 123
                EXPECT_EQ(sheet.Text(0, kFirstTicketCol + tickets), "Gather");
            } else {
                EXPECT_EQ(said, c.Text(2));
                EXPECT_EQ(Snapshot(sheet), before);
            }
        }
    }
}

TEST(NumberEnquiry, ASecondEnquiryReplacesTheFirstWhole) {
    const auto drawings = Drawings({"123", "456", "123"});
    for (const char* object : {kStraight, kBox}) {
        SCOPED_TRACE(object);
        auto fresh = Build(object, drawings);
        ASSERT_EQ(Enquire(EnquiryOf(object), "456", fresh), std::nullopt);

        auto again = Build(object, drawings);
        ASSERT_EQ(Enquire(EnquiryOf(object), "123 456 789 000 111", again), std::nullopt);
        ASSERT_EQ(Enquire(EnquiryOf(object), "456", again), std::nullopt);
        EXPECT_EQ(Snapshot(again), Snapshot(fresh));
        EXPECT_EQ(RowTexts(again, 0, kFirstTicketCol, again.Cols() - 1), (Texts{"456", "Gather"}));
    }
}

}  // namespace
}  // namespace numarel
