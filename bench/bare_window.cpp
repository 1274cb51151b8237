// The least that a program on this toolkit can be: what start-up and memory are held against.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.setWindowTitle("Bare window");
  window.show();
  return QApplication::exec();
}
