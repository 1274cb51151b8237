#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTest>
#include <QTimer>

#include "app/frm_startup.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/qt_form.h"
#include "platform/shared/readable_color.h"

namespace zendor {
namespace {

constexpr ControlId kResult{"Label1"};

class RecordedEvents final : public FormEvents {
 public:
  void Form_Load() override { log << "load"; }
  void Form_Activate() override { log << "activate"; }
  void Form_Unload() override { log << "unload"; }
  void Control_Click(const ControlId& control) override { log << control.name.data(); }
  QStringList log;
};

struct ShownForm {
  ShownForm() {
    form.show(events);
    activate();
  }
  void activate() {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  RecordedEvents events;
  QtForm form{frmStartup::description()};
  QWidget& window = form.window();
  QLabel& result = *window.findChild<QLabel*>("Label1");
  QWidget& client = *result.parentWidget();
};

TEST(Density, ScalesEveryControlAndTheClientAreaBelowTheMenuBar) {
  const ShownForm shown;
  const int density = qEnvironmentVariable("QT_FONT_DPI", "96").toInt();
  const double scale = density / 1440.0 / shown.window.devicePixelRatioF();
  const auto description = frmStartup::description();
  EXPECT_NEAR(shown.client.width(), description.width * scale, 1);
  EXPECT_NEAR(shown.client.height(), description.height * scale, 1);
  EXPECT_EQ(shown.window.minimumSize(), shown.window.maximumSize());
  EXPECT_FALSE(shown.window.windowFlags() & Qt::WindowMinMaxButtonsHint);
  EXPECT_GT(shown.client.y(), 0);
  EXPECT_EQ(shown.client.y(), shown.window.findChild<QMenuBar*>()->height());
  for (const auto& control : description.controls) {
    const bool inArray = control.kind == ControlKind::OptionButton;
    const auto index = inArray ? QString::number(control.id.index) : QString();
    const QRect drawn =
        shown.client.findChild<QWidget*>(control.id.name.data() + index)->geometry();
    EXPECT_NEAR(drawn.x(), control.rect.left * scale, 1) << control.caption;
    EXPECT_NEAR(drawn.y(), control.rect.top * scale, 1) << control.caption;
    EXPECT_NEAR(drawn.height(), control.rect.height * scale, 1.5) << control.caption;
    EXPECT_GE(drawn.width(), control.rect.width * scale - 1.5) << control.caption;
    if (!control.font) continue;
    EXPECT_NEAR(drawn.width(), control.rect.width * scale, 1.5) << control.caption;
    const QFont font =
        shown.client.findChild<QWidget*>(QString::fromUtf8(control.id.name.data()))->font();
    EXPECT_EQ(font.family(), "Arial");
    EXPECT_EQ(font.pointSizeF(), control.font->points) << control.caption;
    EXPECT_TRUE(font.bold());
  }
}

QSize roomForCaption(const QWidget& control) {
  if (qobject_cast<const QRadioButton*>(&control) == nullptr) return control.contentsRect().size();
  QStyleOptionButton option;
  option.initFrom(&control);
  return control.style()->subElementRect(QStyle::SE_RadioButtonContents, &option).size();
}

TEST(Density, ClipsNoCaptionWhateverTheDefaultFont) {
  const QFont before = QApplication::font();
  for (const int points : {7, 9, 12, 20, 30}) {
    QApplication::setFont(QFont("DejaVu Sans", points));
    ShownForm shown;
    shown.form.setCaption(kResult, "C-16777215");
    int rightEnd = 0;
    for (const auto* control : shown.client.findChildren<QWidget*>()) {
      const QString caption = control->property("text").toString();
      const QSize needed = control->fontMetrics().size(Qt::TextSingleLine, caption);
      EXPECT_EQ(needed.boundedTo(roomForCaption(*control)), needed)
          << caption.toStdString() << " at " << points;
      rightEnd = std::max(rightEnd, control->geometry().right());
    }
    EXPECT_LT(rightEnd, shown.client.width());
  }
  QApplication::setFont(before);
}

Rgb rgb(const QColor& color) {
  return {static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
          static_cast<std::uint8_t>(color.blue())};
}

TEST(Window, ShowsAReadableResultInEveryTheme) {
  constexpr Rgb kWhite{255, 255, 255};
  EXPECT_NEAR(contrast(kWhite, {119, 119, 119}), 4.48, 0.01);
  EXPECT_NEAR(contrast({255, 0, 0}, kWhite), 4.00, 0.01);
  EXPECT_NEAR(contrast({0, 0, 255}, kWhite), 8.59, 0.01);
  struct Theme {
    const char* name;
    QColor text, background, backgroundWhenInactive;
  };
  ShownForm shown;
  shown.form.setCaption(kResult, "C-1234567");
  const QPalette before = QApplication::palette();
  for (const auto& [name, text, background, backgroundWhenInactive] :
       {Theme{"light", Qt::black, Qt::white, Qt::black},
        {"dark", Qt::white, Qt::white, QColor("#303030")},
        {"high contrast", Qt::white, Qt::black, Qt::yellow},
        {"in between", QColor("#808080"), QColor("#777777"), QColor("#808080")}}) {
    QPalette theme;
    theme.setColor(QPalette::WindowText, text);
    theme.setColor(QPalette::HighlightedText, background);
    theme.setColor(QPalette::Inactive, QPalette::HighlightedText, backgroundWhenInactive);
    QApplication::setPalette(theme);
    QApplication::processEvents();
    const QImage painted = shown.result.grab().toImage();
    EXPECT_EQ(painted.pixelColor(4, 4), background) << name;
    double best = 0;
    for (int x = 4; x < painted.width() - 4; ++x)
      best = std::max(best, contrast(rgb(painted.pixelColor(x, 20)), rgb(background)));
    EXPECT_GE(best, 4.4) << name;  // strokes lose a little to smoothing
    const QColor active = shown.result.palette().color(QPalette::Active, QPalette::WindowText);
    EXPECT_GE(contrast(rgb(active), rgb(background)), 4.5) << name;
    const QColor inactive = shown.result.palette().color(QPalette::Inactive, QPalette::WindowText);
    EXPECT_GE(contrast(rgb(inactive), rgb(backgroundWhenInactive)), 4.5) << name;
  }
  QApplication::setPalette(before);
}

// Answers the box that is shown next with a key, after a look at it.
void answerNextBox(Qt::Key key, const std::function<void(const QMessageBox&)>& look) {
  QTimer::singleShot(0, [=] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    look(*box);
    QTest::keyClick(box, key);
  });
}

TEST(Window, OpensAMenuOfNothingButALine) {
  ShownForm shown;
  auto& menu = *shown.window.findChild<QMenu*>("SerialPort");
  menu.popup({0, 0});
  const QImage painted = menu.grab().toImage();
  const int middle = painted.width() / 2;
  int lines = 0;
  for (int y = 3; y < painted.height() - 3; ++y) {
    if (painted.pixelColor(middle, y) != painted.pixelColor(middle, 3)) ++lines;
  }
  EXPECT_EQ(lines, 1);
  menu.close();
}

TEST(MessageBox, ShowsTheMessageLetterForLetterAndAnswersNoToEsc) {
  struct Case {
    Message message;
    Qt::Key key;
    QMessageBox::Icon icon;
    MessageAnswer answer;
  };
  using enum MessageButtons;
  const std::string text = "<b>gone</b>\r\nRetry ?";
  const ShownForm shown;
  for (const auto& [message, key, icon, answer] : {Case{{text, "1", MessageIcon::None, Ok},
                                                        Qt::Key_Escape,
                                                        QMessageBox::NoIcon,
                                                        MessageAnswer::Ok},
                                                   {{text, "2", MessageIcon::Critical, Ok},
                                                    Qt::Key_Return,
                                                    QMessageBox::Critical,
                                                    MessageAnswer::Ok},
                                                   {{text, "3", MessageIcon::Exclamation, YesNo},
                                                    Qt::Key_Return,
                                                    QMessageBox::Warning,
                                                    MessageAnswer::Yes},
                                                   {{text, "4", MessageIcon::Exclamation, YesNo},
                                                    Qt::Key_Escape,
                                                    QMessageBox::Warning,
                                                    MessageAnswer::No}}) {
    answerNextBox(key, [&, expected = icon, title = message.title](const QMessageBox& box) {
      EXPECT_EQ(box.text(), "<b>gone</b>\nRetry ?");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.windowTitle().toStdString(), title);
      EXPECT_EQ(box.icon(), expected);
      EXPECT_EQ(box.parent(), &shown.window);
    });
    EXPECT_EQ(QtDesktop(shown.window).showMessage(message), answer) << message.title;
  }
}

}  // namespace
}  // namespace zendor

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
