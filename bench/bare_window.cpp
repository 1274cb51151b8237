// The least that a program with a word in its window can be on this toolkit: what start-up and
// memory are held against.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QLabel window("Bare window");
  window.resize(377, 220);  // as large as the program's
  window.show();
  return QApplication::exec();
}
