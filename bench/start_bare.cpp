#include <QApplication>
#include <QMainWindow>
#include <QTableView>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QTableView);
    window.show();
    return QApplication::exec();
}
