#include "payments/Viitemaksut.h"

#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "payments/Maksukirja.h"
#include "platform/arvot.h"
#include "platform/database.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace {

// Cents of a payment in the currency's ten-thousandths, so that it compares with a total exactly.
Currency Maara(const ViiteTapahtuma &t)
{
    return Currency::fromRaw(MaksunSentit(t) * (Currency::Scale / 100));
}

struct Lasku {
    bool loytyi = false;
    QString viite;
    QVariant hinta, jrID;
};

Lasku HaeHistoriasta(db::Statement &st, qint64 jmhID)
{
    st.reset({jmhID});
    Lasku l;
    if (!st.next())
        return l;
    l.loytyi = true;
    l.viite = NullText(st.value(0)).trimmed();
    l.hinta = st.value(1);
    l.jrID = st.value(2);
    return l;
}

// The payments of the batch on the reference that are larger than the total. An invoice without a
// total has nothing to be larger than.
QList<const ViiteTapahtuma *> Suuremmat(const ViiteEra &era, const Lasku &l)
{
    QList<const ViiteTapahtuma *> tulos;
    if (!l.loytyi || l.hinta.isNull())
        return tulos;
    const Currency hinta = NullCurrency(l.hinta);
    for (const ViiteTapahtuma &t : era.Tapahtumat)
        if (PoistaEtunollat(t.Viitenumero.trimmed()) == l.viite && Maara(t) > hinta)
            tulos << &t;
    return tulos;
}

const QString HaeLaskuSql = QStringLiteral("SELECT jmhjmViitenumero, jmhjmHinta, jmhjmjrID FROM jmhist WHERE jmhID = ?");

} // namespace

ViitemaksujenMerkinta MerkitseMaksetuiksi(db::Database &db, const QList<ViitemaksuRivi> &rivit, bool poista)
{
    ViitemaksujenMerkinta tulos;
    QSet<qint64> tehty;
    db::Transaction tx(db);
    for (const ViitemaksuRivi &r : rivit) {
        // Two payments on one invoice make two rows with the same invoice: it is marked once.
        if (tehty.contains(r.jmhID))
            continue;
        if (r.jmhID < 1 || db.scalar(QStringLiteral("SELECT 1 FROM jmhist WHERE jmhID = ?"), {r.jmhID}).isNull()) {
            tulos.merkitsematta << r.teksti + QStringLiteral(" (laskua ei löydy historiasta)");
            continue;
        }
        try {
            MerkitseMaksetuksi(db, r.jmhID, poista); // its own savepoint: a failure undoes this row alone
            tehty.insert(r.jmhID);
            ++tulos.merkitty;
        } catch (const db::DbError &e) {
            tulos.merkitsematta << r.teksti + QStringLiteral(" (") + e.message() + QLatin1Char(')');
        }
    }
    tx.commit();
    return tulos;
}

QString MerkitsemattomatViesti(const ViitemaksujenMerkinta &m)
{
    if (m.merkitsematta.isEmpty())
        return {};
    return QStringLiteral("Näitä maksuja ei merkitty maksetuiksi:\n") + m.merkitsematta.join(QLatin1Char('\n'));
}

QList<bool> SuuremmatSuoritukset(db::Database &db, const ViiteEra &era, const QList<ViitemaksuRivi> &virheet)
{
    QList<bool> tulos;
    db::Statement st(db, HaeLaskuSql, {0});
    for (const ViitemaksuRivi &r : virheet)
        tulos << !Suuremmat(era, HaeHistoriasta(st, r.jmhID)).isEmpty();
    return tulos;
}

QStringList YlisuoritusRivit(db::Database &db, const ViiteEra &era, const QList<ViitemaksuRivi> &rivit)
{
    QStringList tulos;
    db::Statement st(db, HaeLaskuSql, {0});
    db::Statement jasen(db, QStringLiteral("SELECT jrJasennumero, jrSukunimi, jrEtunimi, jrOsoite, jrPostinumero,"
                                           " jrPostitoimipaikka FROM jr WHERE jrID = ?"), {0});
    for (const ViitemaksuRivi &r : rivit) {
        const Lasku l = HaeHistoriasta(st, r.jmhID);
        const QList<const ViiteTapahtuma *> suuret = Suuremmat(era, l);
        if (suuret.isEmpty())
            continue;
        QStringList henkilo;
        jasen.reset({l.jrID});
        if (jasen.next())
            for (int i = 0; i < 6; ++i)
                henkilo << NullText(jasen.value(i));
        else
            henkilo << QStringLiteral("Jäsentietoa ei löydy");
        const QString hinta = LukuKenttaan(NullCurrency(l.hinta).toDouble());
        for (const ViiteTapahtuma *t : suuret)
            tulos << (QStringList{l.viite, hinta, LukuKenttaan(double(MaksunSentit(*t)) / 100)} + henkilo).join(u';');
    }
    return tulos;
}

bool Suoritusloki::avaa(QString *virhe)
{
    QFile f(m_polku);
    if (f.open(QIODevice::Append | QIODevice::Text)) {
        m_auki = true;
        return true;
    }
    const QFileInfo tieto(m_polku);
    if (!tieto.absoluteDir().exists())
        *virhe = virheviesti(76, QStringLiteral("Polkua ei löydy"));
    else if (f.error() == QFileDevice::OpenError && ((tieto.exists() && !tieto.isWritable()) || !QFileInfo(tieto.absolutePath()).isWritable()))
        *virhe = virheviesti(70, QStringLiteral("Lupa evätty"));
    else
        *virhe = virheviesti(75, QStringLiteral("Polun tai tiedoston käyttövirhe: ") + f.errorString());
    return false;
}

bool Suoritusloki::kirjoita(const QStringList &rivit, QString *virhe)
{
    if (!m_auki || rivit.isEmpty())
        return true;
    QFile f(m_polku);
    QByteArray tavut;
    for (const QString &r : rivit)
        tavut += r.toUtf8() + '\n';
    if (f.open(QIODevice::Append | QIODevice::Text) && f.write(tavut) == tavut.size() && f.flush())
        return true;
    *virhe = QStringLiteral("Tiedostoon '") + m_polku + QStringLiteral("' kirjoittaminen epäonnistui: ") + f.errorString()
             + QStringLiteral("\nLaskut on merkitty maksetuiksi. Kirjaamatta jäivät rivit:\n") + rivit.join(QLatin1Char('\n'));
    return false;
}

QString Suoritusloki::virheviesti(int numero, const QString &teksti) const
{
    return QStringLiteral("Tiedoston '") + m_polku + QStringLiteral("' avaamisessa tapahtui virhe: ") + QString::number(numero)
           + QStringLiteral(" / ") + teksti;
}

std::optional<ViitemaksujenMerkinta> MerkitseYlisuoritukset(db::Database &db, const ViiteEra &ensimmainenEra,
                                                          const QList<ViitemaksuRivi> &rivit, bool poista)
{
    std::optional<Suoritusloki> loki;
    if (!MainModule::Suoritustiedosto.isEmpty()) {
        loki.emplace(MainModule::Suoritustiedosto);
        QString virhe;
        if (!loki->avaa(&virhe)) {
            if (!Kysy(virhe + QStringLiteral("\nHaluatko merkitä valitut laskut maksetuksi ilman että ne kirjautuvat tiedostoon?")))
                return std::nullopt;
            loki.reset();
        }
    }
    const QStringList lokirivit = loki ? YlisuoritusRivit(db, ensimmainenEra, rivit) : QStringList();
    const ViitemaksujenMerkinta m = MerkitseMaksetuiksi(db, rivit, poista);
    QString virhe;
    if (loki && !loki->kirjoita(lokirivit, &virhe))
        IlmoitaVirhe(virhe);
    return m;
}
