// One input of the template merge, shared by the fuzz target and the replay test: the bytes up to
// the first record separator (0x1E) are the template file, the parts after it the payer's name
// and the invoice's row texts. Returns what was wrong, empty when the merge kept its promises:
// a template without "<" comes out as it went in, and every wrapped line fits its width or is
// one word. Header-only.
#pragma once

#include "email/Sahkopohja.h"

#include <QByteArray>
#include <QList>
#include <QString>

inline QString KokeileSahkopohja(const QByteArray &tavut)
{
    const QList<QByteArray> osat = tavut.split('\x1e');
    const QString pohja = PohjaTekstiksi(osat[0]);
    const Laskuttaja seura{QStringLiteral("Seura <LASKUTTAJANNIMI:0>"), QStringLiteral("Tie 1"), QStringLiteral("00100"),
                           QStringLiteral("Helsinki"), {}, {}, {}, {}, {}};
    Sahkopostilasku lasku;
    lasku.lasku = {QStringLiteral("Jäsenmaksu"), QStringLiteral("12,50"), QStringLiteral("1.3.2027"), QStringLiteral("31.3.2027"),
                   QStringLiteral("1232"), QStringLiteral("7")};
    lasku.maksaja.sukunimi = osat.size() > 1 ? PohjaTekstiksi(osat[1]) : QStringLiteral("<MAKSAJANNIMI:0>");
    for (qsizetype i = 2; i < osat.size() && i < 50; ++i)
        lasku.rivit.append({QStringLiteral("1.3.2027"), PohjaTekstiksi(osat[i]), i % 2 ? QString() : QStringLiteral("5,00")});

    const QString tulos = YhdistaLasku(pohja, seura, lasku);
    if (!pohja.contains(QLatin1Char('<')) && tulos != pohja)
        return QStringLiteral("a template without tokens changed");
    for (const cInvoiceRow &r : lasku.rivit) {
        const int leveys = int(r.teksti.size() % 17);
        for (const QString &rivi : RivitaTeksti(r.teksti, leveys).split(QStringLiteral("\r\n")))
            if (leveys > 0 && rivi.size() > leveys && rivi.contains(QLatin1Char(' ')))
                return QStringLiteral("a wrapped line outgrew its width: ") + rivi;
    }
    return {};
}
