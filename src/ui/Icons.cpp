#include "ui/Icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

/// The drawings stand in a static library, from where nothing registers itself.
static void RegisterDrawings() {
    Q_INIT_RESOURCE(icons);
}

namespace tarnbridge {
namespace {

/// The accent in the files, which is their own on light ground, and its counterpart on dark ground.
constexpr const char* accent = "#2a6fdb";
constexpr const char* accentOnDark = "#7fb0ff";

class ThemedIconEngine : public QIconEngine {
public:
    explicit ThemedIconEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

    QIconEngine* clone() const override { return new ThemedIconEngine(*this); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const bool selected = mode == QIcon::Selected;
        const QPalette palette = QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor ink = palette.color(group, selected ? QPalette::HighlightedText : QPalette::WindowText);
        const bool onDark = ink.lightness() > 127;

        QByteArray svg = drawing_;
        svg.replace("currentColor", ink.name().toLatin1());
        const QByteArray inkOrAccent = selected || mode == QIcon::Disabled ? ink.name().toLatin1()
                                       : onDark                            ? QByteArray(accentOnDark)
                                                                           : QByteArray(accent);
        svg.replace(accent, inkOrAccent);
        QSvgRenderer renderer(svg);
        const int side = std::min(rect.width(), rect.height());
        QRectF square(0, 0, side, side);
        square.moveCenter(QRectF(rect).center());
        renderer.render(painter, square);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1.0);
    }

    /// The size is in pixels of the device already.
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal) override {
        const QString key =
            QStringLiteral("tarnbridge:%1:%2:%3x%4:%5")
                .arg(QString::number(qHash(drawing_)), QString::number(mode), QString::number(size.width()),
                     QString::number(size.height()), QString::number(QGuiApplication::palette().cacheKey()));
        QPixmap pixmap;
        if (QPixmapCache::find(key, &pixmap)) return pixmap;
        pixmap = QPixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        painter.end();
        QPixmapCache::insert(key, pixmap);
        return pixmap;
    }

private:
    const QByteArray drawing_;
};

}  // namespace

QIcon ThemedIcon(const QString& name) {
    RegisterDrawings();
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QIcon(new ThemedIconEngine(file.readAll()));
}

QIcon FolderIcon(FolderLook look) {
    constexpr const char* names[] = {"folder", "handset", "computer", "inbox", "outbox",
                                     "sent",   "draft",   "personal", "trash"};
    return ThemedIcon(QString::fromLatin1(names[static_cast<size_t>(look)]));
}

QIcon ProgramIcon() {
    RegisterDrawings();
    return QIcon(QStringLiteral(":/icons/tarnbridge.svg"));
}

}  // namespace tarnbridge
