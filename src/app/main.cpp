// The composition root: Qt application, Finnish locale, real dialogs, then the start-up.
#include <QApplication>
#include <QLocale>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Finnish, QLocale::Finland));
    return 0;
}
