// The bordered label of a result: readable on the theme's highlight-text colour, and copied with
// the mouse, or with the copy key from anywhere in its window.
#pragma once

#include <QAction>
#include <QLabel>

namespace zendor {

class ResultBox final : public QLabel {
 public:
  explicit ResultBox(QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void copyResult() const;
  void keepReadable();

  QAction copy_;
};

}  // namespace zendor
