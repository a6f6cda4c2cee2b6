#include "shell/welcome_window.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>

#include "platform/twips.h"
#include "shell/publisher.h"

namespace numarel {
namespace {

// The two small pictures of the window: drawn balls that read "3D", the kind of lottery.
void PaintBall(QPainter& painter, const QRect& rect, const QColor& colour, const QString& digit) {
    QRadialGradient shade(rect.topLeft() + QPointF(rect.width() * 0.35, rect.height() * 0.3),
                          rect.width() * 0.7);
    shade.setColorAt(0, colour.lighter(170));
    shade.setColorAt(1, colour);
    painter.setBrush(shade);
    painter.setPen(colour.darker(140));
    painter.drawEllipse(rect);
    painter.setPen(Qt::white);
    QFont font = DesignFont(8, true);
    painter.setFont(font);
    painter.drawText(rect, Qt::AlignCenter, digit);
}

}  // namespace

WelcomeWindow::WelcomeWindow(Session& session, std::function<void()> start)
    : QWidget(nullptr, Qt::Window), session_(session), start_(std::move(start)) {
    setObjectName(QStringLiteral("Form2shuoming"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Welcome to use this software."));
    setFixedSize(TwipsToPixelsX(this, kClientWidth), TwipsToPixelsY(this, kClientHeight));

    auto* type = new QRadioButton(QStringLiteral("Numarel"), this);
    type->setObjectName(QStringLiteral("Option1"));
    type->setFont(DesignFont(10.5, true));
    type->setChecked(true);
    // The only kind of lottery: an exclusive group keeps it selected whatever is clicked.
    auto* types = new QButtonGroup(this);
    types->setExclusive(true);
    types->addButton(type);
    PlaceAt(type, 480, 263, 3255, 375);

    auto* home = new QPushButton(QStringLiteral("Home Page"), this);
    home->setObjectName(QStringLiteral("Command1"));
    PlaceAt(home, 240, 720, 1575, 375);
    connect(home, &QPushButton::clicked, this, [this] {
        session_.platform.launcher.Open(QUrl(QString::fromLatin1(publisher::kHomePage)));
    });

    auto* startButton = new QPushButton(QStringLiteral("Start"), this);
    startButton->setObjectName(QStringLiteral("Command2"));
    PlaceAt(startButton, 2040, 720, 1575, 375);
    startButton->setDefault(true);
    connect(startButton, &QPushButton::clicked, this, [this] {
        if (start_) start_();
        close();
    });
    startButton_ = startButton;

    auto* version = new QLabel(QStringLiteral("v15.1"), this);
    version->setObjectName(QStringLiteral("Label2"));
    version->setFont(DesignFont(9, true, true));
    QPalette palette = version->palette();
    palette.setColor(QPalette::WindowText, QColor(128, 0, 0));
    version->setPalette(palette);
    version->adjustSize();
    version->move(TwipsToPixelsX(this, 3480), TwipsToPixelsY(this, 1320));
}

void WelcomeWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        startButton_->click();
        return;
    }
    QWidget::keyPressEvent(event);
}

void WelcomeWindow::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintBall(painter, TwipsRect(this, 300, 1230, 330, 330), QColor(192, 32, 32),
              QStringLiteral("3"));
    PaintBall(painter, TwipsRect(this, 690, 1230, 330, 330), QColor(32, 96, 192),
              QStringLiteral("D"));
}

}  // namespace numarel
