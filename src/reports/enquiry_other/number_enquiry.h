#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/report_sheet.h"

namespace numarel {

// A window in which the user enters tickets and sees in which drawings each would have won. It
// opens on the history; Enquire adds one hit column per ticket.
struct NumberEnquiry {
    std::string_view object;      // the window object
    std::string_view inputLabel;  // caption of the frame around the ticket text box
    int ticketLimit;              // the most tickets one enquiry takes
    std::string_view noTicket;    // said when the text holds no digit
    std::string_view tooManyTickets;
    bool boxKey;  // the drawing's key is its sorted digits (Box) rather than its drawn order
};

// The enquiry of the window `object`; nullptr when `object` is no enquiry window.
const NumberEnquiry* FindNumberEnquiry(std::string_view object);

// The ticket digits of a typed or pasted text: everything but "0" to "9" is dropped, so any
// grouping the user typed means nothing.
std::string TicketDigits(std::string_view text);

// Why `text` cannot be enquired, as the message for the user (title "Information"); nothing when
// it can.
std::optional<std::string_view> TicketRefusal(const NumberEnquiry& enquiry, std::string_view text);

// Looks the tickets of `text` up in the history sheet: one hit column per ticket in input order
// and "Gather", with Miss numbers and statistic rows, in place of the columns of an earlier
// enquiry. A text that cannot be enquired leaves the sheet as it was and gives the message for the
// user (title "Information").
std::optional<std::string_view> Enquire(const NumberEnquiry& enquiry, std::string_view text,
                                        ReportSheet& sheet);

// The title of every message Enquire gives.
inline constexpr std::string_view kEnquiryMessageTitle = "Information";

}  // namespace numarel
