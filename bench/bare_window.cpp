// The least that a window with two text panes can be: what the program's start is measured against.

#include <QApplication>
#include <QMainWindow>
#include <QSplitter>
#include <QTextEdit>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    auto *panes = new QSplitter(&window);
    panes->addWidget(new QTextEdit);
    panes->addWidget(new QTextEdit);
    window.setCentralWidget(panes);
    window.resize(900, 600);
    window.show();
    return QApplication::exec();
}
