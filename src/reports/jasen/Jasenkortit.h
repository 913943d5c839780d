// Member cards ("jk1.rpt"): who gets a card, and the run of the report with the card's texts.
#pragma once

#include "platform/database.h"

#include <QString>
#include <QVector>

// A row of the person list: "Kaikki" (0), each attribute as "Om - name" (its id negated),
// then each member by name (jrID).
struct KorttiHenkilo {
    QString teksti;
    qint64 arvo = 0;
};
QVector<KorttiHenkilo> KorttiHenkilot(db::Database &d);

// The selection formula of a chosen row. Cards for those without an attribute (`muille`) mark
// them in jrMukaan, which overwrites the selection made in the search conditions.
QString KorttienValinta(db::Database &d, qint64 arvo, bool muille);

struct KorttiTekstit {
    QString otsake, alateksti1, alateksti2;
};

// The report run after the print settings window: reset, file, fonts, destination, copies,
// the club's name and the card's texts, the selection. Throws RaporttiVirhe.
void AjaJasenkortit(const QString &valinta, const KorttiTekstit &tekstit);
