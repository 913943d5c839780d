// The program's own pictures, drawn rather than shipped: the emblem and the main window's icons.
#pragma once

#include <QIcon>
#include <QPixmap>

namespace Kuvakkeet {

// The program's emblem: a white V on a rounded blue square.
QPixmap tunnus(int koko);

QIcon jasenrekisteri();
QIcon maksukirja();
QIcon laskutus();
QIcon ominaisuudet();
QIcon sulje();

} // namespace Kuvakkeet
