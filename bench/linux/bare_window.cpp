// A bare window of the program's size with the same controls at the same places, in the same two
// faces, and no program behind them. The program's start-up and memory are compared with those of
// this window.
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QDialog window;
  window.setFixedSize(377, 219);
  window.setWindowTitle("Bare window");
  QMenuBar bar(&window);
  bar.addMenu("Serial Port");
  QLabel heading("Your Zendor Serial Number is:", &window), result("Label1", &window);
  QRadioButton first("Serial Port 1", &window), second("Serial Port 2", &window);
  QRadioButton third("Serial Port 3", &window), fourth("Serial Port 4", &window);
  QPushButton button("Get Serial Number", &window);
  const struct {
    QWidget& widget;
    int left, top, width, height;
  } places[] = {
      {heading, 16, 30, 345, 25}, {result, 16, 70, 345, 41},  {first, 32, 126, 105, 25},
      {second, 32, 150, 105, 25}, {third, 248, 126, 105, 25}, {fourth, 248, 150, 105, 25},
      {button, 8, 182, 353, 33},
  };
  for (const auto& place : places) {
    place.widget.setGeometry(place.left, place.top, place.width, place.height);
  }
  heading.setFont(QFont("Arial", 14, QFont::Bold));
  button.setFont(heading.font());
  result.setFont(QFont("Arial", 24, QFont::Bold));
  result.setFrameStyle(QFrame::Box);
  result.setTextInteractionFlags(Qt::TextSelectableByMouse);
  first.setChecked(true);
  window.show();
  result.clear();
  return QApplication::exec();
}
