// Draws a square SVG picture in a size of its own.
//
//   draw_icon PICTURE.svg SIZE PICTURE.png

#include <QCoreApplication>
#include <QImage>
#include <QImageReader>
#include <cstdio>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv); // finds the plugin that reads SVG
    const QStringList arguments = QCoreApplication::arguments();
    const int size = arguments.value(2).toInt();
    if (arguments.size() != 4 || size <= 0) {
        std::fputs("usage: draw_icon PICTURE.svg SIZE PICTURE.png\n", stderr);
        return 2;
    }
    QImageReader reader(arguments[1]);
    reader.setScaledSize({size, size});
    const QImage image = reader.read();
    if (image.isNull() || !image.save(arguments[3])) {
        std::fprintf(stderr, "draw_icon: %s\n", qPrintable(reader.errorString()));
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
