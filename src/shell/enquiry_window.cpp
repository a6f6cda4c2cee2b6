#include "shell/enquiry_window.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "platform/grid_view.h"
#include "platform/twips.h"

namespace numarel {

EnquiryWindow::EnquiryWindow(const ReportDefinition& definition, const NumberEnquiry& enquiry,
                             const CommandEntry* command, Session& session)
    : ReportWindow(definition, command, session),
      enquiry_(enquiry),
      frame_(new QGroupBox(ToQString(enquiry.inputLabel), this)),
      ticketBox_(new QPlainTextEdit(frame_)),
      enquireButton_(new QPushButton(QStringLiteral("Enquire"), frame_)) {
    ticketBox_->setObjectName(QStringLiteral("Text1"));
    ticketBox_->setFont(DesignFont(7.5));
    ticketBox_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    ticketBox_->setTabChangesFocus(true);
    enquireButton_->setObjectName(QStringLiteral("Command2"));
    connect(enquireButton_, &QPushButton::clicked, this, &EnquiryWindow::Enquire);

    // Help and Exit stand in the frame with Enquire.
    if (QPushButton* help = HelpButton()) {
        help->setParent(frame_);
        help->setObjectName(QStringLiteral("Command3"));
        help->show();
    }
    ExitButton()->setParent(frame_);
    ExitButton()->setObjectName(QStringLiteral("Command4"));
    ExitButton()->show();
    setTabOrder(ticketBox_, enquireButton_);
    ticketBox_->setFocus();
}

void EnquiryWindow::Enquire() {
    const std::string text = ticketBox_->toPlainText().toStdString();
    if (auto refusal = TicketRefusal(enquiry_, text)) {
        WindowSession().platform.messages.Show(this, ToQString(kEnquiryMessageTitle),
                                               ToQString(*refusal), MessageIcon::Information);
        return;
    }
    setWindowTitle(QStringLiteral("Please wait......"));
    QApplication::setOverrideCursor(Qt::WaitCursor);
    // Let the caption reach the screen before the enquiry blocks.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    numarel::Enquire(enquiry_, text, Sheet());
    Grid()->SetSheet(&Sheet());  // the columns changed: the grid takes the sheet afresh
    QApplication::restoreOverrideCursor();
    setWindowTitle(ToQString(Definition().title));
}

void EnquiryWindow::LayoutWindow() {
    const int clientWidth = PixelsToTwipsX(this, width());
    const int clientHeight = PixelsToTwipsY(this, height());
    const int sheetWidth = clientWidth - kMarginRight;
    const int sheetHeight = clientHeight - kMarginBelow;
    const int frameWidth = clientWidth - kFrameMarginRight;
    const int buttonLeft = frameWidth - kFrameInset - kButtonWidth;
    const int boxWidth = buttonLeft - 2 * kFrameInset;
    if (sheetWidth <= 0 || sheetHeight <= 0 || boxWidth <= 0) return;

    PlaceAt(Grid(), 0, 0, sheetWidth, sheetHeight);
    PlaceAt(frame_, 0, sheetHeight + kFrameGap, frameWidth, kFrameHeight);
    const int boxHeight = kFrameHeight - kFrameContentTop - kFrameInset;
    PlaceAt(ticketBox_, kFrameInset, kFrameContentTop, boxWidth, boxHeight);
    PlaceAt(enquireButton_, buttonLeft, kFrameContentTop, kButtonWidth, kButtonHeight);
    const int exitTop = kFrameContentTop + boxHeight - kButtonHeight;
    PlaceAt(ExitButton(), buttonLeft, exitTop, kButtonWidth, kButtonHeight);
    if (QPushButton* help = HelpButton())
        PlaceAt(help, buttonLeft, exitTop - kFrameButtonGap - kButtonHeight, kButtonWidth,
                kButtonHeight);
    // The status line stands on the frame's caption line, right of the caption.
    const int statusLeft = std::max(frameWidth / 2, frameWidth - 7000);
    PlaceAt(StatusLine(), statusLeft, sheetHeight + kFrameGap,
            frameWidth - kFrameInset - statusLeft, kFrameContentTop - 60);
    StatusLine()->raise();
}

}  // namespace numarel
