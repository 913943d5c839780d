#include "invoicing/Mod97.h"

int Mod97(QStringView teksti)
{
    if (teksti.isEmpty())
        return -1;
    int jaannos = 0;
    for (const QChar c : teksti) {
        const char16_t u = c.unicode();
        if (u >= u'0' && u <= u'9') {
            jaannos = (jaannos * 10 + (u - u'0')) % 97;
        } else {
            int arvo;
            if (u >= u'A' && u <= u'Z')
                arvo = u - u'A' + 10;
            else if (u >= u'a' && u <= u'z')
                arvo = u - u'a' + 10;
            else
                return -1;
            jaannos = (jaannos * 100 + arvo) % 97;
        }
    }
    return jaannos;
}

QString IlmanValejaIsoin(QStringView teksti)
{
    QString tulos;
    tulos.reserve(teksti.size());
    for (const QChar c : teksti)
        if (!c.isSpace())
            tulos += c.toUpper();
    return tulos;
}
