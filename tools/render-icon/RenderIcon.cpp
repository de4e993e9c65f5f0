// Draws a drawing as a square picture: render-icon DRAWING.svg SIDE PICTURE.png.

#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <cstdio>

int main(int count, char** arguments) {
    if (count != 4) {
        std::fprintf(stderr, "usage: render-icon DRAWING.svg SIDE PICTURE.png\n");
        return 2;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(arguments[1]));
    const int side = QString::fromLatin1(arguments[2]).toInt();
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    if (drawing.isValid() && picture.save(QString::fromLocal8Bit(arguments[3]))) return 0;
    std::fprintf(stderr, "render-icon: cannot draw %s\n", arguments[1]);
    return 1;
}
