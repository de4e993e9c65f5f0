#pragma once

#include <QWidget>

class QAction;
class QLabel;
class QVBoxLayout;

namespace tarnbridge {

/// What stands where there is nothing to show: a drawing, what this place is for, and what to do.
class EmptyHint : public QWidget {
    Q_OBJECT

public:
    /// \param icon  name of a ThemedIcon
    EmptyHint(const QString& icon, const QString& title, const QString& hint, QWidget* parent = nullptr);

    void SetTitle(const QString& title);

    /// Adds a button for the command that fills this place.
    void Offer(QAction* action);

protected:
    void changeEvent(QEvent* event) override;

private:
    void Draw();

    const QString icon_;
    QLabel* const picture_;
    QLabel* const title_;
    QVBoxLayout* const layout_;
};

}  // namespace tarnbridge
