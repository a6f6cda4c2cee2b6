#include <QClipboard>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "platform/grid_view.h"
#include "shell/enquiry_window.h"
#include "shell/shell_fixture.h"

namespace numarel {
namespace {

constexpr const char* kStraight = "frmzhixuanhaocx";
constexpr const char* kBox = "frmzuxuanhaocx";
constexpr int kFirstTicketCol = 5;

// The history of the fixture: 1 1 3, 4 5 6, 7 7 9.
class EnquiryWindowTest : public testing::ShellTest {
protected:
    EnquiryWindow* Open(const char* object) {
        return &dynamic_cast<EnquiryWindow&>(*ShellTest::Open(object));
    }
    static void Type(QWidget* widget, const QString& text) {
        for (QChar ch : text) {
            const int key = ch == QLatin1Char('\n') ? int(Qt::Key_Return) : int(ch.unicode());
            const QString typed = ch == QLatin1Char('\n') ? QStringLiteral("\r") : QString(ch);
            testing::Key(widget, key, Qt::NoModifier, typed, true);
        }
    }
    static void EnquireWith(EnquiryWindow* w, const QString& text) {
        w->TicketBox()->setPlainText(text);
        w->EnquireButton()->click();
    }
};

// It opens on the history with the ticket frame under the sheet. The cells are pinned with the
// enquiry itself; here that the grid follows the sheet.
TEST_F(EnquiryWindowTest, TypedAndPastedTicketsAreEnquiredAndASmallerEnquiryReplacesThem) {
    EnquiryWindow* w = Open(kStraight);
    EXPECT_TRUE(w->isMaximized());
    EXPECT_EQ(w->Grid()->Model().columnCount(), 4);  // the history only
    for (QPushButton* button : {w->EnquireButton(), w->HelpButton(), w->ExitButton()})
        EXPECT_TRUE(button && button->isVisible());
    w->TicketBox()->setFocus();
    Type(w->TicketBox(), QStringLiteral("456,\n"));
    QApplication::clipboard()->setText(QStringLiteral("1 13\r\n977"));
    w->TicketBox()->paste();
    ASSERT_EQ(w->TicketBox()->toPlainText(), "456,\n1 13\n977");
    w->EnquireButton()->click();

    EXPECT_TRUE(scripted.shown.empty());
    EXPECT_EQ(w->windowTitle(), "Straight Number Enquire");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    const ReportSheet& sheet = w->Sheet();
    ASSERT_EQ(sheet.Cols(), kFirstTicketCol + 3 + 1);
    SheetModel& model = w->Grid()->Model();
    EXPECT_EQ(model.headerData(kFirstTicketCol + 3 - 1, Qt::Horizontal).toString(), "Gather");
    EXPECT_GT(w->Grid()->ColumnPixels(kFirstTicketCol + 3),
              w->Grid()->ColumnPixels(kFirstTicketCol));

    EnquireWith(w, QStringLiteral("779"));
    ASSERT_EQ(sheet.Cols(), kFirstTicketCol + 2);
    EXPECT_EQ(model.columnCount(), kFirstTicketCol + 1);
    EXPECT_EQ(model.IndexOf(3, kFirstTicketCol).data().toString(), "***");
}

// The refusals themselves are pinned with the enquiry; here how one is shown.
TEST_F(EnquiryWindowTest, ARefusalIsShownAsInformationAndLeavesTheSheet) {
    EnquiryWindow* w = Open(kBox);
    EXPECT_EQ(w->windowTitle(), "Box Number Enquire");
    EnquireWith(w, QStringLiteral("113 456"));
    ASSERT_EQ(w->Sheet().Cols(), kFirstTicketCol + 3);
    const QString title = w->windowTitle();
    QString titleWhileShown;
    scripted.onShown = [&] { titleWhileShown = w->windowTitle(); };
    EnquireWith(w, QString(71 * 3, QLatin1Char('7')));
    ASSERT_EQ(scripted.shown.size(), 1u);
    EXPECT_EQ(scripted.shown[0].title, "Information");
    EXPECT_EQ(scripted.shown[0].text,
              "The Box Number you want to enquire cannot be more than 70 Tickets!");
    EXPECT_EQ(titleWhileShown, title);  // refused before "Please wait......"
    EXPECT_EQ(w->Sheet().Cols(), kFirstTicketCol + 3);
    EXPECT_EQ(w->Grid()->Model().columnCount(), kFirstTicketCol + 2);
    scripted.onShown = nullptr;
}

TEST_F(EnquiryWindowTest, TheSheetTakesWhatTheWindowGainsAndTheFrameKeepsItsHeight) {
    EnquiryWindow* w = Open(kBox);
    w->showNormal();
    w->resize(900, 600);
    QCoreApplication::processEvents();
    const QRect sheet = w->Grid()->geometry();
    const QRect frame = w->Frame()->geometry();
    EXPECT_EQ(sheet.topLeft(), QPoint(0, 0));
    EXPECT_EQ(frame.left(), 0);
    EXPECT_LE(std::abs(frame.top() - sheet.bottom() - 1), 1);  // 10 twips under the sheet
    EXPECT_LE(std::abs(frame.width() - sheet.width()), 1);     // 10 twips narrower
    EXPECT_LE(frame.bottom(), w->height());
    const int boxWidth = w->TicketBox()->width();
    // The status line stands on the frame's caption line, clear of the sheet.
    EXPECT_GE(w->StatusLine()->geometry().top(), sheet.bottom());

    // 100 pixels wider and 200 higher: the sheet and the text box grow, the frame moves down.
    w->resize(1000, 800);
    QCoreApplication::processEvents();
    EXPECT_NEAR(w->Grid()->height(), sheet.height() + 200, 1);
    EXPECT_NEAR(w->Grid()->width(), sheet.width() + 100, 1);
    EXPECT_NEAR(w->Frame()->y(), frame.y() + 200, 1);
    EXPECT_EQ(w->Frame()->height(), frame.height());
    EXPECT_NEAR(w->TicketBox()->width(), boxWidth + 100, 1);

    // Too small for the margins: the layout stays as it was.
    const QRect before = w->Grid()->geometry();
    w->resize(60, 60);
    QCoreApplication::processEvents();
    EXPECT_EQ(w->Grid()->geometry(), before);
}

}  // namespace
}  // namespace numarel
