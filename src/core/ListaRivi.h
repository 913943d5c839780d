// One row of a list a window shows: the item data (an id) and the text.
#pragma once

#include <QString>

struct ListaRivi {
    qint64 id = 0;
    QString teksti;
};
