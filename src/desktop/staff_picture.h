#pragma once

#include <QWidget>

namespace tul::desktop {

/// A bar of music in the colours of the window, for the head of the main panel.
class StaffPicture : public QWidget {
  public:
    explicit StaffPicture(QWidget* parent = nullptr);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tul::desktop
