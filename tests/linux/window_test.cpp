#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QMessageBox>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTest>
#include <QTimer>

#include "app/frm_startup.h"
#include "platform/qt/qt_application.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/qt_form.h"
#include "platform/shared/readable_color.h"

namespace zendor {
namespace {

QSize roomForCaption(const QWidget& control) {
  if (qobject_cast<const QRadioButton*>(&control) == nullptr) return control.contentsRect().size();
  QStyleOptionButton option;
  option.initFrom(&control);
  return control.style()->subElementRect(QStyle::SE_RadioButtonContents, &option).size();
}

TEST(Density, GrowsAsAWholeWithTheUsersFontAndClipsNoCaptionAndFitsOnTheScreen) {
  const QFont before = QApplication::font();
  QtForm form(frmStartup::description());
  form.setCaption(ControlId{"Label1"}, "C-16777215");
  const double usual = form.window().sizeHint().width();
  for (const int points : {7, 40, 14, 20, 9}) {
    SCOPED_TRACE(points);
    QApplication::setFont(QFont("DejaVu Sans", points));
    QApplication::processEvents();
    const QWidget& client = *form.window().findChild<QLabel*>()->parentWidget();
    for (const auto* control : client.findChildren<QWidget*>()) {
      const QString caption = control->property("text").toString();
      const QSize needed = control->fontMetrics().size(Qt::TextSingleLine, caption);
      EXPECT_EQ(needed.boundedTo(roomForCaption(*control)), needed) << caption.toStdString();
    }
    const double growth = client.width() / usual;
    EXPECT_NEAR(client.findChild<QLabel*>("Label1")->font().pointSizeF(), 24 * growth, 0.1);
    EXPECT_NEAR(client.findChild<QLabel*>("Label1")->width(), 5172 * usual * growth / 5652, 1);
    const double choices = client.findChild<QRadioButton*>()->font().pointSizeF();
    const QSize screen = form.window().screen()->availableSize();
    EXPECT_EQ(form.window().sizeHint().boundedTo(screen), form.window().sizeHint());
    const bool isShrunk = client.width() >= screen.width() - 1;
    EXPECT_TRUE(isShrunk ? choices < points : choices == points) << choices;
    EXPECT_TRUE(points > 9 || growth == 1) << growth;
    EXPECT_TRUE(points < 40 || isShrunk) << client.width();
  }
  QApplication::setFont(before);
}

Rgb rgb(const QColor& color) {
  return {static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
          static_cast<std::uint8_t>(color.blue())};
}

TEST(Window, KeepsTheResultReadableWhenTheThemeChangesAndWhenTheWindowIsInactive) {
  constexpr Rgb kWhite{255, 255, 255};
  EXPECT_NEAR(contrast(kWhite, {119, 119, 119}), 4.48, 0.01);
  EXPECT_NEAR(contrast({255, 0, 0}, kWhite), 4.00, 0.01);
  EXPECT_NEAR(contrast({0, 0, 255}, kWhite), 8.59, 0.01);
  QtForm form(frmStartup::description());
  const auto& result = *form.window().findChild<QLabel*>("Label1");
  const QPalette before = QApplication::palette();
  const QColor colors[] = {Qt::white, Qt::black, Qt::yellow, "#777777", "#808080", "#303030"};
  for (const QColor& active : colors) {
    for (const QColor& inactive : colors) {
      QPalette theme(Qt::white, Qt::darkGray);
      theme.setColor(QPalette::Active, QPalette::HighlightedText, active);
      theme.setColor(QPalette::Inactive, QPalette::HighlightedText, inactive);
      QApplication::setPalette(theme);
      QApplication::processEvents();
      const QPalette own = result.palette();
      EXPECT_GE(contrast(rgb(own.color(QPalette::Active, QPalette::WindowText)), rgb(active)), 4.5);
      EXPECT_GE(contrast(rgb(own.color(QPalette::Inactive, QPalette::WindowText)), rgb(inactive)),
                4.5);
    }
  }
  QApplication::setPalette(before);
}

void sendKey(QWindow& window, QEvent::Type type, Qt::Key key, quint64 time, bool isRepeat = false) {
  QKeyEvent event(type, key, Qt::NoModifier, {}, isRepeat);
  event.setTimestamp(time);
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(&window, &event);
}

// Looks at the message box that is shown next, and then answers it with a key. The key was held
// when the box came, so both kinds of its repeat come first. A helping program then presses it
// at a time that it does not tell.
void answerNextBox(Qt::Key key, const std::function<void(const QMessageBox&)>& look) {
  QTimer::singleShot(0, [=] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    look(*box);
    QWindow& window = *box->windowHandle();
    sendKey(window, QEvent::KeyRelease, key, 7);
    sendKey(window, QEvent::KeyPress, key, 7);
    sendKey(window, QEvent::KeyPress, key, 8, true);
    EXPECT_TRUE(box->isVisible());
    sendKey(window, QEvent::KeyRelease, key, 0);
    sendKey(window, QEvent::KeyPress, key, 0);
    EXPECT_FALSE(box->isVisible());
    box->hide();
  });
}

TEST(MessageBox, ShowsTheMessageLetterForLetterWithItsWholeTitleAndAnswersNoToEsc) {
  struct Case {
    MessageButtons buttons;
    MessageIcon icon;
    Qt::Key key;
    MessageAnswer answer;
  };
  using enum MessageButtons;
  using enum MessageIcon;
  QApplication::setStyle("windows");  // this style alone makes no text selectable
  const std::string title(20, 'M');
  QtForm form(frmStartup::description());
  QFont titleFont = QApplication::font();
  titleFont.setBold(true);
  const int titleWidth = QFontMetrics(titleFont).horizontalAdvance(QString(20, 'M'));
  for (const auto& [buttons, icon, key, answer] :
       {Case{Ok, None, Qt::Key_Escape, MessageAnswer::Ok},
        {Ok, Critical, Qt::Key_Return, MessageAnswer::Ok},
        {YesNo, Exclamation, Qt::Key_Return, MessageAnswer::Yes},
        {YesNo, Exclamation, Qt::Key_Escape, MessageAnswer::No}}) {
    answerNextBox(key, [&, expected = icon](const QMessageBox& box) {
      EXPECT_EQ(box.text(), "<b>gone</b>\nRetry ?");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_TRUE(box.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
      EXPECT_EQ(box.windowTitle().toStdString(), title);
      EXPECT_GT(box.width(), titleWidth + 120);  // room for the title bar's buttons
      EXPECT_EQ(box.icon(), expected == None       ? QMessageBox::NoIcon
                            : expected == Critical ? QMessageBox::Critical
                                                   : QMessageBox::Warning);
      EXPECT_EQ(box.parent(), &form.window());
    });
    const Message message{"<b>gone</b>\r\nRetry ?", title, icon, buttons};
    EXPECT_EQ(QtDesktop(form.window()).showMessage(message), answer);
  }
}

}  // namespace
}  // namespace zendor

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const zendor::QtApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
