#include "payments/Maksukirja.h"

#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "invoicing/Viite.h"
#include "platform/arvot.h"
#include "platform/database.h"
#include "platform/dialogs.h"

#include <cmath>
#include <limits>

namespace {

QString kyllaEi(const QVariant &v) { return NullBoolean(v) ? QStringLiteral("Kyllä") : QStringLiteral("Ei"); }

QString kyllaEiTaiViiva(const QVariant &v)
{
    return v.isNull() || !v.isValid() ? QStringLiteral("-") : kyllaEi(v);
}

// Yes to a two-line question with the question mark.
bool kysy(const QString &kysymys, const QString &toinen)
{
    return Kysy(kysymys + QLatin1Char('\n') + toinen);
}

std::optional<QString> syote(const QString &kehote)
{
    return dlg::current().input(kehote, MainModule::AppName, QString(), false);
}

int poista(db::Database &db, const QString &sql, const db::Params &arvot = {})
{
    db::Transaction tx(db);
    const int n = db.execute(sql, arvot);
    tx.commit();
    return n;
}

} // namespace

std::optional<HistorianLasku> HaeLasku(db::Database &db, const QString &viitenumero)
{
    const QString viite = viitenumero.trimmed();
    db::Statement st(db, QStringLiteral("SELECT jmhID, jmhjmjrID, jmhjmOtsake, jmhjmErapaiva, jmhjmLaskupaiva, jmhjmLaskunumero,"
                                        " jmhjmViitenumero, jmhjmHinta, jmhjmTeksti, jmhjmMaksettu, jmhjmPerhe, jmhjmOmin,"
                                        " jmhjmJasMak FROM jmhist WHERE jmhjmViitenumero = ? ORDER BY jmhID LIMIT 1"),
                     {viite});
    if (!st.next()) {
        Ilmoita(QStringLiteral("Laskua viitenumerolla: ") + viite + QStringLiteral(" ei löydy."));
        return std::nullopt;
    }
    HistorianLasku l;
    l.jmhID = NullLong(st.value(0));
    db::Statement jasen(db, QStringLiteral("SELECT jrID, jrSukunimi, jrEtunimi FROM jr WHERE jrID = ?"), {NullLong(st.value(1))});
    if (!jasen.next()) {
        Ilmoita(QStringLiteral("Henkilöä annetulle viitenumerolle ") + viite + QStringLiteral(" ei enää löydy."));
        return std::nullopt;
    }
    l.jrID = NullLong(jasen.value(0));
    l.nimi = NullText(jasen.value(1)) + QLatin1Char(' ') + NullText(jasen.value(2));
    l.otsake = NullText(st.value(2));
    l.erapaiva = PaivaTekstina(NullDate(st.value(3)));
    l.laskupaiva = PaivaTekstina(NullDate(st.value(4)));
    l.laskunumero = st.value(5).isNull() ? QString() : QString::number(NullLong(st.value(5)));
    l.viitenumero = NullText(st.value(6));
    l.hinta = st.value(7).isNull() ? QString() : RahaKenttaan(NullCurrency(st.value(7)));
    l.teksti = NullText(st.value(8));
    l.maksettu = kyllaEi(st.value(9));
    l.perhemaksu = kyllaEiTaiViiva(st.value(10));
    l.ominaisuusmaksu = kyllaEiTaiViiva(st.value(11));
    l.jasenmaksu = kyllaEiTaiViiva(st.value(12));
    return l;
}

LaskunSuoritukset HaeSuoritukset(db::Database &db, qint64 jmhID)
{
    LaskunSuoritukset s;
    db::Statement st(db, QStringLiteral("SELECT Paiva, Summa, Arkistointitunnus FROM Suoritukset WHERE jmhID = ?"
                                        " ORDER BY Paiva, Suoritus_ID"), {jmhID});
    while (st.next()) {
        s.rivit.append({NullDate(st.value(0)), NullCurrency(st.value(1)), NullText(st.value(2))});
        s.maksettu = s.maksettu + s.rivit.constLast().summa;
    }
    s.avoinna = NullCurrency(db.scalar(QStringLiteral("SELECT jmhjmHinta FROM jmhist WHERE jmhID = ?"), {jmhID})) - s.maksettu;
    return s;
}

void MerkitseMaksetuksi(db::Database &db, qint64 jmhID, bool poistaMaksettu)
{
    db::Transaction tx(db);
    db::Statement st(db, QStringLiteral("SELECT jmhjmjrID, jmhjmJasMak, jmhjmPerhe, jmhjmID FROM jmhist WHERE jmhID = ?"), {jmhID});
    if (!st.next())
        return;
    const qint64 jrID = NullLong(st.value(0)), jmID = NullLong(st.value(3));
    if (NullBoolean(st.value(1))) {
        // A member whose row is gone is passed over: the update finds nothing.
        db.execute(QStringLiteral("UPDATE jr SET jrJasenmaksu = 1 WHERE jrID = ?"), {jrID});
        if (NullBoolean(st.value(2)))
            db.execute(QStringLiteral("UPDATE jr SET jrJasenmaksu = 1 WHERE jrID IN (SELECT jrPSubID FROM jrPerhe WHERE jrPMID = ?)"), {jrID});
    }
    db.execute(QStringLiteral("UPDATE jmhist SET jmhjmMaksettu = 1 WHERE jmhID = ?"), {jmhID});
    db.execute(QStringLiteral("UPDATE jmRivi SET jmRMaksettu = 1 WHERE jmRjmID = ?"), {jmID});
    if (poistaMaksettu) {
        db.execute(QStringLiteral("DELETE FROM jmRivi WHERE jmRjmID = ?"), {jmID});
        db.execute(QStringLiteral("DELETE FROM jmhist WHERE jmhID = ?"), {jmhID});
    }
    tx.commit();
}

QString TaydennaViitteeksi(const QString &teksti)
{
    // The check digit without its leading blank: the box holds a reference to fetch, not a print form.
    QString tulos = teksti + LaskeViitetarkiste(teksti).trimmed();
    qsizetype i = 0;
    while (i < tulos.size() && tulos[i].isSpace())
        ++i;
    return tulos.mid(i);
}

int PoistaKaikkiHistoriasta(db::Database &db)
{
    if (!kysy(QStringLiteral("Poistetaanko kaikki maksut historiasta?"),
              QStringLiteral("Poiston jälkeen et enää voi tulostaa laskutuslistoja.")))
        return 0;
    return poista(db, QStringLiteral("DELETE FROM jmhist"));
}

int PoistaMaksetutHistoriasta(db::Database &db)
{
    if (!kysy(QStringLiteral("Poistetaanko maksetut maksut historiasta?"),
              QStringLiteral("Poiston jälkeen et enää voi tulostaa maksaneiden luetteloa.")))
        return 0;
    return poista(db, QStringLiteral("DELETE FROM jmhist WHERE jmhjmMaksettu = 1"));
}

int PoistaHistoriastaLaskunumerolla(db::Database &db)
{
    if (!kysy(QStringLiteral("Haluatko poistaa laskuhistoriasta tietyllä laskunumerovälillä olevat laskut?"),
              QStringLiteral("Poiston jälkeen et enää voi tulostaa vastaavia luetteloja.")))
        return 0;
    const QString alku = syote(QStringLiteral("Anna laskunumero, josta alkaen haluat laskuja poistaa")).value_or(QString());
    const QString loppu = syote(QStringLiteral("Anna laskunumero, johon haluat laskujen poiston lopettaa")).value_or(QString());
    QStringList ehdot;
    db::Params arvot;
    if (OnNumeerinen(alku)) {
        ehdot << QStringLiteral("jmhjmLaskunumero >= ?");
        arvot << NumeroArvo(alku);
    }
    if (OnNumeerinen(loppu)) {
        ehdot << QStringLiteral("jmhjmLaskunumero <= ?");
        arvot << NumeroArvo(loppu);
    }
    if (ehdot.isEmpty())
        return 0; // neither is a number: nothing is done and nothing said
    return poista(db, QStringLiteral("DELETE FROM jmhist WHERE ") + ehdot.join(QStringLiteral(" AND ")), arvot);
}

int PoistaYksittainenHistoriasta(db::Database &db)
{
    const QString vastaus = syote(QStringLiteral("Anna poistettavan laskun numero.")).value_or(QString());
    if (vastaus.isEmpty())
        return 0;
    const double n = NumeroArvo(vastaus);
    if (!OnNumeerinen(vastaus) || n < std::numeric_limits<qint32>::min() || n > std::numeric_limits<qint32>::max()) {
        Ilmoita(QStringLiteral("Laskunumeroksi tulee syöttää vain numeroita."));
        return 0;
    }
    const qint32 numero = qint32(std::nearbyint(n)); // a 32-bit integer, rounded as the conversion rounds
    if (!Kysy(QStringLiteral("Poistetaanko lasku numero %1 historiasta?").arg(numero)))
        return 0;
    const int poistettu = poista(db, QStringLiteral("DELETE FROM jmhist WHERE jmhjmLaskunumero = ?"), {numero});
    Ilmoita(QStringLiteral("Lasku poistettu."));
    return poistettu;
}
