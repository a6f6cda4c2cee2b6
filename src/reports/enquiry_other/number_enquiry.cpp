#include "reports/enquiry_other/number_enquiry.h"

#include <span>
#include <string>
#include <vector>

#include "frame/frame_passes.h"
#include "frame/number_classes.h"
#include "reports/report_registry.h"

namespace numarel {
namespace {

constexpr int kKeyCol = 4;  // the drawing as a three-character key, read back by the hit pass
constexpr int kFirstTicketCol = 5;
constexpr int kTicketWidth = 372;
constexpr int kGatherWidth = 620;
constexpr std::string_view kHitMarker = "***";
constexpr std::string_view kInputErrors =
    "There are errors in the input.Please check the input and try again!";

constexpr NumberEnquiry kStraight = {
    .object = "frmzhixuanhaocx",
    .inputLabel = "Please enter the Straight Number you want to enquire.(You can paste.)",
    .ticketLimit = 400,
    .noTicket = "You did not enter the Straight Number!",
    .tooManyTickets = "The Straight Number you want to enquire cannot be more than 400 Tickets.!",
    .boxKey = false,
};

constexpr NumberEnquiry kBox = {
    .object = "frmzuxuanhaocx",
    .inputLabel = "Please enter the Box Number you want to enquire.(You can paste.)",
    .ticketLimit = 70,
    .noTicket = "You did not enter the Box Number!",
    .tooManyTickets = "The Box Number you want to enquire cannot be more than 70 Tickets!",
    .boxKey = true,
};

constexpr const NumberEnquiry* kEnquiries[] = {&kStraight, &kBox};

// The three digits written one after the other, each as the number it was read as, into the
// key cell.
void SetKey(ReportSheet& sheet, int row, const CurrentDigits& digits) {
    std::string key;
    for (short d : digits)
        key += std::to_string(d);
    sheet.SetText(row, kKeyCol, key);
}

// The window as it opens: the history with each drawing's key, no ticket columns yet.
void LoadHistory(const NumberEnquiry& enquiry, std::span<const DrawRecord> drawings,
                 ReportSheet& sheet) {
    sheet.SetCols(kFirstTicketCol);
    sheet.SetColWidth(0, 1218);
    for (int c = 1; c <= 3; ++c)
        sheet.SetColWidth(c, 300);
    sheet.SetColWidth(kKeyCol, 600);

    const int drawCount = CountDrawings(drawings);
    ResetSheet(sheet, drawCount, drawCount + 2);
    // The digits are in the sheet before the Box key sorts the digits in hand.
    FillSheet(sheet, drawings, [&](int row, CurrentDigits& digits) {
        if (enquiry.boxKey) SortDigits(digits);
        SetKey(sheet, row, digits);
    });
    HeadDigitColumns(sheet);
    FinishLoad(sheet);
}

// Marks each ticket column, and "Gather", in the rows whose key is the ticket as a number; the
// tickets are read back from the header, as typed, so a Box ticket out of order never hits.
void MarkHits(ReportSheet& sheet, int gatherCol) {
    std::vector<short> tickets;
    for (int c = kFirstTicketCol; c < gatherCol; ++c)
        tickets.push_back(sheet.CellNumber(0, c));
    const int drawCount = sheet.DrawCount();
    for (int r = 1; r <= drawCount; ++r) {
        const short key = sheet.CellNumber(r, kKeyCol);
        bool hit = false;
        for (std::size_t i = 0; i < tickets.size(); ++i) {
            if (tickets[i] != key) continue;
            sheet.SetText(r, kFirstTicketCol + static_cast<int>(i), kHitMarker);
            hit = true;
        }
        if (hit) sheet.SetText(r, gatherCol, kHitMarker);
    }
}

}  // namespace

const NumberEnquiry* FindNumberEnquiry(std::string_view object) {
    for (const NumberEnquiry* enquiry : kEnquiries)
        if (enquiry->object == object) return enquiry;
    return nullptr;
}

std::string TicketDigits(std::string_view text) {
    std::string digits;
    for (char ch : text)
        if (ch >= '0' && ch <= '9') digits += ch;
    return digits;
}

std::optional<std::string_view> TicketRefusal(const NumberEnquiry& enquiry, std::string_view text) {
    const std::string digits = TicketDigits(text);
    if (digits.empty()) return enquiry.noTicket;
    if (digits.size() % 3 != 0) return kInputErrors;
    if (digits.size() / 3 > static_cast<std::size_t>(enquiry.ticketLimit))
        return enquiry.tooManyTickets;
    return std::nullopt;
}

std::optional<std::string_view> Enquire(const NumberEnquiry& enquiry, std::string_view text,
                                        ReportSheet& sheet) {
    if (auto refusal = TicketRefusal(enquiry, text)) return refusal;
    const std::string digits = TicketDigits(text);
    const int tickets = static_cast<int>(digits.size() / 3);
    const int gatherCol = kFirstTicketCol + tickets;
    sheet.SetCols(kFirstTicketCol);  // drops every column of an earlier enquiry
    // The rows of the statistics come with the columns, so that the cells are laid out once.
    sheet.Resize(sheet.DrawCount() + 6, gatherCol + 1);
    for (int i = 0; i < tickets; ++i) {
        sheet.SetColWidth(kFirstTicketCol + i, kTicketWidth);
        sheet.SetText(0, kFirstTicketCol + i,
                      std::string_view(digits).substr(static_cast<std::size_t>(i) * 3, 3));
    }
    sheet.SetColWidth(gatherCol, kGatherWidth);
    sheet.SetText(0, gatherCol, "Gather");

    MarkHits(sheet, gatherCol);
    FillMissCountersAndStatisticRows(sheet, gatherCol, kHitMarker, AverageRule::EmptyWhenNoHit,
                                     kFirstTicketCol);
    return std::nullopt;
}

// The two enquiry windows open on the history; their ticket columns come with Enquire.
std::span<const ReportDefinition> NumberEnquiryReports() {
    static constexpr ReportDefinition kReports[] = {
        {.object = kStraight.object,
         .title = "Straight Number Enquire",
         .build = BuildMember<LoadHistory, kStraight>,
         .window = WindowKind::Enquiry},
        {.object = kBox.object,
         .title = "Box Number Enquire",
         .build = BuildMember<LoadHistory, kBox>,
         .window = WindowKind::Enquiry},
    };
    return kReports;
}

}  // namespace numarel
