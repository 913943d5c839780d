#include "esittely/Esittelyseura.h"

#include "esittely/EsittelyJasenet.h"
#include "esittely/EsittelyKirjoitus.h"
#include "esittely/EsittelyLaskupohjat.h"
#include "esittely/EsittelyLaskut.h"
#include "esittely/EsittelyPiirteet.h"
#include "core/Malli.h"
#include "core/UpdateDatabase.h"

#include <QFile>
#include <QFileInfo>

namespace esittely {

QString SeuranTili(int n)
{
    return n == 1 ? QStringLiteral("FI15 1590 3000 0931 28") : QStringLiteral("FI38 5720 0080 0473 66");
}

namespace {

QList<QPair<QString, QString>> asetukset(const Seura &s)
{
    const auto k = [](const char *avain, const QString &arvo) { return qMakePair(QString::fromLatin1(avain), arvo); };
    return {
        k("RegName", QStringLiteral("Vanhankylän Urheiluseura ry")),
        k("Henkilo", QStringLiteral("Sirkka Mäkelä")),
        k("RegOsoite", QStringLiteral("Urheilukatu 12")),
        k("RegPostinumero", QStringLiteral("04400")),
        k("RegPostitoimipaikka", QStringLiteral("JÄRVENPÄÄ")),
        k("RegPuhelin", QStringLiteral("040 718 2290")),
        k("RegFax", QString()),
        k("Email", QStringLiteral("jasensihteeri@vanhankylanus.example")),
        k("RegSeuranEmail", QStringLiteral("toimisto@vanhankylanus.example")),
        k("RegWWW", QStringLiteral("www.vanhankylanus.example")),
        k("SMTP", QString()),
        k("EmailPerMin", QStringLiteral("0")),
        k("EmailSystem", QStringLiteral("0")),
        k("RegPankkiyhteys1", SeuranTili(1)),
        k("RegPankkiyhteys2", SeuranTili(2)),
        k("YTunnus", QStringLiteral("2918476-3")),
        k("Laskunro", QString::number(s.suurinLaskunumero + 1)),
        // The counter holds the number the next new member gets.
        k("Jasennro", QString::number(s.suurinJasennumero + 1)),
        k("BackupDate", QDate(Kausi, 11, 1).toString(Qt::ISODate)),
        k("VarmuuskopioPv", QStringLiteral("30")),
        k("AutoJasennumero", QStringLiteral("1")),
        k("MuistutaVarm", QStringLiteral("0")),
        k("LaskupohjaKaytossa", QStringLiteral("0")),
        k("LaskupohjaHKaytossa", QStringLiteral("0")),
        k("LaskupohjaTiedosto", QString()),
        k("LaskupohjaHTiedosto", QString()),
        k("Muistutuskulut", Muistutuskulut().toString()),
        k("Viivastyskorko", QString::number(Viivastyskorko)),
        k("MuistutusOtsake", MuistutusOtsake()),
        k("MuistutusAlku", QStringLiteral("Kirjanpitomme mukaan alla oleva lasku on vielä maksamatta. "
                                          "Pyydämme maksamaan sen viimeistään kahden viikon kuluessa.")),
        k("MuistutusLoppu", QStringLiteral("Jos olet jo maksanut laskun, tämä muistutus on aiheeton. Kiitos!")),
        k("TulostusEra", QStringLiteral("0")),
        k("Suoritustiedosto", QString()),
        k("OsoiteTiedosto", QString()),
        k("OsoiteMuoto", QStringLiteral("0")),
        k("SuuretSuorituksetMaksetuksi", QStringLiteral("0")),
        k("SuorituksellaMaksetuksiJosEiLoppusummaa", QStringLiteral("0")),
        k("Fontti", QStringLiteral("Times New Roman")),
        k("FonttiKoko", QStringLiteral("10")),
        k("MargOik", QStringLiteral("0")),
        k("MargVas", QStringLiteral("0")),
        k("MargYla", QStringLiteral("0")),
        k("MargAla", QStringLiteral("0")),
        k("AsKannassa", QStringLiteral("1")),
    };
}

void kirjoitaAsetukset(db::Database &db, const Seura &s)
{
    const QString osio = QStringLiteral("VONARI");
    for (const auto &[avain, arvo] : asetukset(s)) {
        db.execute(QStringLiteral("DELETE FROM Settings WHERE setSection = ? AND setKey = ?"), {osio, avain});
        db.execute(QStringLiteral("INSERT INTO Settings (setSection, setKey, setString) VALUES (?, ?, ?)"),
                   {osio, avain, arvo});
    }
}

} // namespace

} // namespace esittely

namespace {

// A large club is one big transaction: a page cache that holds it saves spilling it twice.
class SuuriValimuisti {
public:
    explicit SuuriValimuisti(db::Database &db) : m_db(db), m_vanha(db.scalar(QStringLiteral("PRAGMA cache_size")))
    {
        m_db.execute(QStringLiteral("PRAGMA cache_size = -262144"));
    }
    ~SuuriValimuisti()
    {
        try {
            m_db.execute(QStringLiteral("PRAGMA cache_size = %1").arg(m_vanha.toLongLong()));
        } catch (...) {
        }
    }
    SuuriValimuisti(const SuuriValimuisti &) = delete;
    SuuriValimuisti &operator=(const SuuriValimuisti &) = delete;

private:
    db::Database &m_db;
    QVariant m_vanha;
};

} // namespace

void TaytaSeura(db::Database &db, int jasenia, quint32 siemen)
{
    using namespace esittely;
    const SuuriValimuisti valimuisti(db);
    db::Transaction t(db);
    if (db.scalar(QStringLiteral("SELECT COUNT(*) FROM jr")).toLongLong() > 0)
        throw db::DbError(db::ErrorKind::Other, QStringLiteral("Esittelyseuraa ei voi luoda: tietokannassa on jo jäseniä."));
    Seura s;
    Arpa a(siemen);
    LuoJasenet(s, jasenia, a);
    LuoPiirteet(s, a);
    LuoLaskuhistoria(s, a);
    KirjoitaSeura(db, s);
    KirjoitaLaskupohjat(db);
    kirjoitaAsetukset(db, s);
    t.commit();
}

void LuoDemoTietokanta(const QString &path)
{
    if (QFileInfo::exists(path))
        throw db::DbError(db::ErrorKind::Other, QStringLiteral("Tiedosto on jo olemassa: %1").arg(path));
    try {
        LuoMalliTietokanta(path);
        auto db = db::Database::open(path);
        UpdateDatabase(*db);
        TaytaSeura(*db, 150);
    } catch (...) {
        // A half-made file must not pass for a database at the next start.
        for (const char *liite : {"", "-wal", "-shm"})
            QFile::remove(path + QLatin1String(liite));
        throw;
    }
}
