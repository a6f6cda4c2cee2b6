#pragma once

#include "reports/enquiry_other/number_enquiry.h"
#include "shell/report_window.h"

class QGroupBox;
class QPlainTextEdit;
class QPushButton;

namespace numarel {

// The window of a number enquiry: the history sheet, and under it a frame captioned with the
// input label that holds the ticket text box, "Enquire", "Help" and "Exit". Enquire puts one
// column per ticket of the text box into the sheet, in place of those of the enquiry before; a
// text that cannot be enquired is refused with a message and leaves the sheet as it was.
class EnquiryWindow : public ReportWindow {
    Q_OBJECT
public:
    // Designed client size.
    static constexpr int kDesignWidth = 12960;
    static constexpr int kDesignHeight = 8085;
    // What the layout leaves free right of and below the sheet and right of the frame, on the
    // client area (the outer margins 210, 3300 and 220, less a window frame of 120 by 465).
    static constexpr int kMarginRight = 90;
    static constexpr int kMarginBelow = 2835;
    static constexpr int kFrameMarginRight = 100;
    static constexpr int kFrameGap = 10;  // between the sheet and the frame
    static constexpr int kFrameHeight = 2715;
    // Inside the frame: the edge, the top under the caption, the gap between Help and Exit.
    static constexpr int kFrameInset = 120;
    static constexpr int kFrameContentTop = 300;
    static constexpr int kFrameButtonGap = 120;

    EnquiryWindow(const ReportDefinition& definition, const NumberEnquiry& enquiry,
                  const CommandEntry* command, Session& session);

    QGroupBox* Frame() const { return frame_; }
    QPlainTextEdit* TicketBox() const { return ticketBox_; }  // Text1
    QPushButton* EnquireButton() const { return enquireButton_; }

    // Enquires the tickets of the text box, under the caption "Please wait......" and the
    // hourglass; a refusal is shown with the title "Information".
    void Enquire();

    // The sheet, and the frame under it across the window; inside the frame the text box, with
    // Enquire at its right top and Help and Exit at its right bottom. A window too small for the
    // margins keeps its old layout.
    void LayoutWindow() override;

protected:
    QSize DesignSizeTwips() const override { return {kDesignWidth, kDesignHeight}; }

private:
    const NumberEnquiry& enquiry_;
    QGroupBox* frame_;
    QPlainTextEdit* ticketBox_;
    QPushButton* enquireButton_;
};

}  // namespace numarel
