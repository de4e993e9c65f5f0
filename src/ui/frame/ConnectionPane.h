#pragma once

#include <QWidget>

class QLabel;

namespace tarnbridge {

/// The last two panes of the status bar: the state of the connection in words and as a small picture.
class ConnectionPane : public QWidget {
    Q_OBJECT

public:
    explicit ConnectionPane(QWidget* parent = nullptr);

    void SetConnected(bool connected);

protected:
    void changeEvent(QEvent* event) override;

private:
    void Draw();

    QLabel* const words_;
    QLabel* const picture_;
    bool connected_ = false;
};

}  // namespace tarnbridge
