// The result box: readable on the theme's highlight-text colour, and copied with the mouse or, from
// anywhere in its window, with the copy key.
#pragma once

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <memory>

namespace zendor {

class ResultBox final : public QLabel {
 public:
  explicit ResultBox(QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void copyResult() const;
  void keepReadable();

  QAction copy_;
  std::unique_ptr<QMenu> menu_;  // the one that was opened last
};

}  // namespace zendor
