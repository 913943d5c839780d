// Reads the bank's file of incoming reference payments into batches. Two kinds of file are read,
// told apart by their content, never by their name:
//  - the fixed-width file of 90-character records 0, 3, 5 and 9 (KTL), in ISO-8859-1, UTF-8 or
//    7-bit ASCII with the old national letters;
//  - the ISO 20022 camt.054 notification (any version of the camt.054.001 namespace).
// A file that is neither, is empty, cut short, binary or too large raises ViiteaineistoVirhe and
// gives nothing: a half-read file would have the user mark half a batch.
#pragma once

#include "payments/Viiteaineisto.h"

#include <QByteArray>
#include <QList>
#include <QString>

class ViiteaineistoLukija {
public:
    // The largest file read. A year of a large club's payments is a few megabytes in either format.
    static constexpr qint64 SuurinKoko = 50LL * 1024 * 1024;

    // The batches of the file in file order. A valid file with no reference payments in it (a
    // notification of debits only) gives an empty list.
    QList<ViiteEra> LueTiedosto(const QString &tiedostonimi) const;
    // The same from the file's bytes.
    QList<ViiteEra> LueTavut(const QByteArray &tavut) const;
};
