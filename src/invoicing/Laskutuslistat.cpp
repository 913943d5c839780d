#include "invoicing/Laskutuslistat.h"

#include "members/TyhjatRivit.h"
#include "platform/arvot.h"

#include <algorithm>

QVector<ListaRivi> LaskutusNimet(db::Database &db)
{
    PoistaTyhjatRivit(db);
    QVector<ListaRivi> rivit{{0, QStringLiteral("Kaikki")}};
    db::Statement piirteet(db, QStringLiteral("SELECT piID, piNimi FROM pi ORDER BY piNimi COLLATE FI, piID"));
    while (piirteet.next())
        rivit.append({-NullLong(piirteet.value(0)), QStringLiteral("Om - ") + NullText(piirteet.value(1))});
    db::Statement jasenet(db, QStringLiteral("SELECT jrID, jrSukunimi, jrEtunimi FROM jr"
                                             " ORDER BY jrSukunimi COLLATE FI, jrEtunimi COLLATE FI, jrID"));
    while (jasenet.next())
        rivit.append({NullLong(jasenet.value(0)), NullText(jasenet.value(1)) + QLatin1Char(' ') + NullText(jasenet.value(2))});
    return rivit;
}

QVector<ListaRivi> PerhelaskuNimet(db::Database &db)
{
    QVector<ListaRivi> rivit = LaskutusNimet(db);
    rivit.erase(std::remove_if(rivit.begin(), rivit.end(), [](const ListaRivi &r) { return r.id > 0; }), rivit.end());
    db::Statement maksajat(db, QStringLiteral("SELECT jrID, jrSukunimi, jrEtunimi FROM jr WHERE jrPerheenLaskutettava = 1"
                                              " ORDER BY jrSukunimi COLLATE FI, jrEtunimi COLLATE FI, jrID"));
    while (maksajat.next())
        rivit.append({NullLong(maksajat.value(0)), NullText(maksajat.value(1)) + QLatin1Char(' ') + NullText(maksajat.value(2))});
    return rivit;
}

QVector<ListaRivi> OminaisuusValinnat(db::Database &db)
{
    QVector<ListaRivi> rivit{{0, QStringLiteral("---")}};
    db::Statement st(db, QStringLiteral("SELECT piID, piNimi FROM pi ORDER BY piNimi COLLATE FI, piID"));
    while (st.next())
        rivit.append({NullLong(st.value(0)), NullText(st.value(1))});
    return rivit;
}

QVector<ListaRivi> MyyntilajiValinnat(db::Database &db)
{
    QVector<ListaRivi> rivit{{0, QStringLiteral("-Ei myyntilajia-")}};
    db::Statement st(db, QStringLiteral("SELECT mlID, mlNumero, mlNimi FROM ml ORDER BY mlNimi COLLATE FI, mlID"));
    while (st.next()) {
        const QString numero = NullText(st.value(1));
        const QString nimi = NullText(st.value(2));
        rivit.append({NullLong(st.value(0)), numero.isEmpty() ? nimi : numero + QLatin1Char('/') + nimi});
    }
    return rivit;
}

QVector<ListaRivi> LaskuOtsakkeet(db::Database &db)
{
    QVector<ListaRivi> rivit;
    db::Statement st(db, QStringLiteral("SELECT ltID, ltNimi FROM lt ORDER BY ltNimi COLLATE FI, ltID"));
    while (st.next()) {
        const QString nimi = NullText(st.value(1));
        if (!nimi.trimmed().isEmpty())
            rivit.append({NullLong(st.value(0)), nimi});
    }
    return rivit;
}

std::optional<ListaRivi> MuistaOtsake(db::Database &db, const QString &otsake)
{
    if (otsake.trimmed().isEmpty())
        return std::nullopt;
    if (db.scalar(QStringLiteral("SELECT ltID FROM lt WHERE ltNimi = ? COLLATE FI"), {otsake}).isValid())
        return std::nullopt;
    db.execute(QStringLiteral("INSERT INTO lt (ltNimi) VALUES (?)"), {otsake});
    return ListaRivi{db.lastInsertId(), otsake};
}

void PoistaOtsake(db::Database &db, qint64 ltID)
{
    db.execute(QStringLiteral("DELETE FROM lt WHERE ltID = ?"), {ltID});
}
