#include "members/Jasenhaku.h"

#include "platform/arvot.h"

#include <QCollator>
#include <QLocale>
#include <algorithm>
#include <stdexcept>

namespace Jasenhaku {
namespace {

const QString Pako = QStringLiteral("\\");

// Only these columns ever reach a statement's text; values are always bound.
void tarkistaSarake(const QString &s)
{
    static const QStringList sallitut = {QStringLiteral("jrJasennumero"), QStringLiteral("jrOsoite"),
                                        QStringLiteral("jrPuhelin"), QStringLiteral("jrMatkapuhelin"),
                                        QStringLiteral("jrEmail")};
    if (!sallitut.contains(s))
        throw std::invalid_argument("unknown search column");
}

QString pakene(QChar c)
{
    if (c == QLatin1Char('%') || c == QLatin1Char('_') || c == QLatin1Char('\\'))
        return Pako + c;
    return QString(c);
}

qint64 ensimmainen(db::Database &db, const QString &sql, const db::Params &p)
{
    return NullLong(db.scalar(sql, p));
}

// Digits and blanks (member numbers, most phone numbers) sort the same by code as by Finnish rules.
bool numeroita(const QVector<HakuRivi> &rivit)
{
    for (const HakuRivi &r : rivit)
        for (QChar c : r.teksti)
            if (!(c.unicode() >= '0' && c.unicode() <= '9') && c != QLatin1Char(' '))
                return false;
    return true;
}

// Finnish order of a long list: sort keys are made once per row, so the sort compares bytes.
void jarjestaSuomeksi(QVector<HakuRivi> &rivit)
{
    if (numeroita(rivit)) {
        std::stable_sort(rivit.begin(), rivit.end(), [](const HakuRivi &a, const HakuRivi &b) { return a.teksti < b.teksti; });
        return;
    }
    QCollator c(QLocale(QLocale::Finnish, QLocale::Finland));
    c.setCaseSensitivity(Qt::CaseInsensitive);
    struct Avain {
        QCollatorSortKey avain;
        int paikka;
    };
    std::vector<Avain> avaimet;
    avaimet.reserve(size_t(rivit.size()));
    for (int i = 0; i < rivit.size(); ++i)
        avaimet.push_back({c.sortKey(rivit[i].teksti), i});
    std::stable_sort(avaimet.begin(), avaimet.end(),
                     [](const Avain &a, const Avain &b) { return a.avain.compare(b.avain) < 0; });
    QVector<HakuRivi> jarjestetty;
    jarjestetty.reserve(rivit.size());
    for (const Avain &a : avaimet)
        jarjestetty.append(std::move(rivit[a.paikka]));
    rivit = std::move(jarjestetty);
}

} // namespace

QString sarake(Yhteystieto y)
{
    switch (y) {
    case Yhteystieto::Osoite: return QStringLiteral("jrOsoite");
    case Yhteystieto::Puhelin: return QStringLiteral("jrPuhelin");
    case Yhteystieto::Matkapuhelin: return QStringLiteral("jrMatkapuhelin");
    case Yhteystieto::Email: return QStringLiteral("jrEmail");
    }
    return {};
}

QString likeKuvio(const QString &teksti, bool sisalla)
{
    QString k;
    k.reserve(teksti.size() + 4);
    if (sisalla)
        k += QLatin1Char('%');
    for (QChar c : teksti) {
        if (c == QLatin1Char('*'))
            k += QLatin1Char('%');
        else if (c == QLatin1Char('?'))
            k += QLatin1Char('_');
        else
            k += pakene(c);
    }
    if (sisalla)
        k += QLatin1Char('%');
    return k;
}

QString likeAlku(const QString &teksti)
{
    QString k;
    for (QChar c : teksti)
        k += pakene(c);
    return k + QLatin1Char('%');
}

QVector<HakuRivi> Arvot(db::Database &db, const QString &s)
{
    tarkistaSarake(s);
    QVector<HakuRivi> rivit;
    db::Statement st(db, QStringLiteral("SELECT jrID, %1 FROM jr WHERE %1 IS NOT NULL ORDER BY jrID").arg(s));
    while (st.next())
        rivit.append({st.value(0).toLongLong(), st.value(1).toString()});
    jarjestaSuomeksi(rivit);
    return rivit;
}

QVector<HakuRivi> MuistioAlut(db::Database &db)
{
    QVector<HakuRivi> rivit;
    db::Statement st(db, QStringLiteral("SELECT substr(ptValMemo, 1, 30), ptjrID FROM pt JOIN jr ON pt.ptjrID = jr.jrID "
                                        "WHERE ptValMemo IS NOT NULL ORDER BY ptID"));
    while (st.next())
        rivit.append({st.value(1).toLongLong(), st.value(0).toString()});
    return rivit;
}

qint64 Jasennumerolla(db::Database &db, const QString &numero)
{
    // The exact form uses the unique index; the case-insensitive one (a letter in the number)
    // is asked only when that finds nothing.
    if (const qint64 id = ensimmainen(db, QStringLiteral("SELECT jrID FROM jr WHERE jrJasennumero = ? ORDER BY jrID LIMIT 1"),
                                      {numero}))
        return id;
    return ensimmainen(db, QStringLiteral("SELECT jrID FROM jr WHERE jrJasennumero = ? COLLATE FI ORDER BY jrID LIMIT 1"),
                       {numero});
}

MuistioTulos MuistiostaHaku(db::Database &db, const QString &sana)
{
    MuistioTulos t;
    db::Statement st(db, QStringLiteral("SELECT jr.jrID FROM jr JOIN pt ON jr.jrID = pt.ptjrID "
                                        "WHERE pt.ptValMemo LIKE ? ESCAPE '\\' ORDER BY pt.ptID"),
                     {likeKuvio(sana, true)});
    while (st.next()) {
        ++t.maara;
        t.jrID = st.value(0).toLongLong();
    }
    return t;
}

qint64 MuistionAlulla(db::Database &db, const QString &alku)
{
    return ensimmainen(db,
                       QStringLiteral("SELECT jr.jrID FROM jr JOIN pt ON jr.jrID = pt.ptjrID "
                                      "WHERE pt.ptValMemo LIKE ? ESCAPE '\\' ORDER BY pt.ptID LIMIT 1"),
                       {likeAlku(alku)});
}

qint64 Yhteystiedolla(db::Database &db, Yhteystieto y, const QString &arvo)
{
    return ensimmainen(db, QStringLiteral("SELECT jrID FROM jr WHERE %1 = ? COLLATE FI ORDER BY jrID LIMIT 1").arg(sarake(y)),
                       {arvo});
}

QVector<HakuRivi> Nimella(db::Database &db, const QString &sukunimi, const QString &etunimi)
{
    QStringList ehdot;
    db::Params p;
    if (!sukunimi.isEmpty()) {
        ehdot << QStringLiteral("jrSukunimi LIKE ? ESCAPE '\\'");
        p << likeKuvio(sukunimi, true);
    }
    if (!etunimi.isEmpty()) {
        ehdot << QStringLiteral("jrEtunimi LIKE ? ESCAPE '\\'");
        p << likeKuvio(etunimi, true);
    }
    QVector<HakuRivi> rivit;
    if (ehdot.isEmpty())
        return rivit;
    db::Statement st(db, QStringLiteral("SELECT jrID, jrSukunimi, jrEtunimi, jrPostitoimipaikka FROM jr WHERE ") +
                             ehdot.join(QStringLiteral(" AND ")) + QStringLiteral(" ORDER BY jrID"),
                     p);
    while (st.next()) {
        const QString nimi = (NullText(st.value(1)) + QLatin1Char(' ') + NullText(st.value(2))).trimmed();
        rivit.append({st.value(0).toLongLong(), nimi + QStringLiteral(" - ") + NullText(st.value(3))});
    }
    return rivit;
}

} // namespace Jasenhaku
