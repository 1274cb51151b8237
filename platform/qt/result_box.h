// The result box: readable on the theme's highlight-text colour, spoken by screen readers, and
// copied with the mouse or, from anywhere in its window, with the copy key.
#pragma once

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <memory>

namespace zendor {

class ResultBox final : public QLabel {
 public:
  explicit ResultBox(QWidget* parent);

  // Shows a result, or none if it is empty.
  void showResult(const QString& result);

 protected:
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void openMenu(const QPoint& place);
  void keepReadable();

  QAction copy_;
  QAction menuKeys_;
  std::unique_ptr<QMenu> menu_;  // the one that was opened last
};

}  // namespace zendor
