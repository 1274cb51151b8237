// A bare window of the program's size: no controls, no menu, only a word in each of the two faces
// that the program shows. The program's start-up and memory are compared with those of this window.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.resize(377, 220);
  const QLabel plain("Bare", &window);
  QLabel bold("window", &window);
  bold.setFont(QFont("Arial", 24, QFont::Bold));
  bold.move(0, 100);
  window.show();
  return QApplication::exec();
}
