#include "core/AsetustenTallennus.h"

#include "core/Asetukset.h"
#include "core/Kaksoisnumerot.h"
#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "platform/arvot.h"
#include "core/Korjaus.h"
#include "core/Postisalasana.h"
#include "core/UpdateDatabase.h"
#include "platform/files.h"

#include <QRegularExpression>
#include <limits>
#include <optional>

namespace M = MainModule;

namespace {

constexpr qint64 kLongMax = std::numeric_limits<qint32>::max();
constexpr qint64 kIntegerMax = std::numeric_limits<qint16>::max();
constexpr qint64 kPorttiMax = 65535;
// The report engine takes a margin times 48 as a 16-bit value.
constexpr qint64 kMarginaaliMax = kIntegerMax / 48;

// A whole number of digits only (blanks between thousands allowed) within 0..max.
std::optional<qint64> kokonaisluku(const QString &text, qint64 max)
{
    static const QRegularExpression digits(QStringLiteral("^\\d{1,10}$"));
    QString t = text.trimmed();
    t.remove(QChar(0x00A0));
    t.remove(QChar(0x202F));
    t.remove(QLatin1Char(' '));
    if (!digits.match(t).hasMatch())
        return std::nullopt;
    const qint64 n = t.toLongLong();
    if (n > max)
        return std::nullopt;
    return n;
}

bool eiNegatiivinenLuku(const QString &text)
{
    return OnNumeerinen(text) && NumeroArvo(text) >= 0;
}

QString yksiTaiNolla(bool b) { return b ? QStringLiteral("1") : QStringLiteral("0"); }

// Writes keys one after another into the store (when there is one) and into their globals. The
// first bad number shows its message and stops every write after it; what was written stays.
class Kirjoittaja {
public:
    explicit Kirjoittaja(KantaStore *store) : m_store(store) {}

    void kirjoita(const QString &key, const QString &value)
    {
        if (m_seis || !m_store)
            return;
        try {
            m_store->writeString(key, value);
        } catch (const std::exception &e) {
            IlmoitaVirhe(QStringLiteral("Asetuksen %1 tallennus ei onnistunut:\n%2")
                             .arg(key, QString::fromUtf8(e.what())));
            m_seis = true;
        }
    }

    void teksti(const QString &key, const QString &value, QString &global)
    {
        kirjoita(key, value);
        if (!m_seis)
            global = value;
    }

    void totuus(const QString &key, bool value, bool &global)
    {
        kirjoita(key, yksiTaiNolla(value));
        if (!m_seis)
            global = value;
    }

    // A number that needs no check (it comes from a list).
    template <typename T>
    void numero(const QString &key, T value, T &global)
    {
        kirjoita(key, QString::number(value));
        if (!m_seis)
            global = value;
    }

    template <typename T>
    void luku(const QString &key, const QString &text, qint64 max, const QString &viesti,
              const QString &kentta, T &global)
    {
        if (m_seis)
            return;
        const auto n = kokonaisluku(text, max);
        if (!n) {
            hylkaa(viesti, kentta);
            return;
        }
        kirjoita(key, QString::number(*n));
        if (!m_seis)
            global = T(*n);
    }

    // A number with decimals; `arvo` turns the accepted text into the global's value.
    template <typename T, typename F>
    void desimaaliluku(const QString &key, const QString &text, const QString &viesti,
                       const QString &kentta, T &global, F arvo)
    {
        if (m_seis)
            return;
        const std::optional<T> v = eiNegatiivinenLuku(text) ? arvo(text.trimmed()) : std::nullopt;
        if (!v) {
            hylkaa(viesti, kentta);
            return;
        }
        kirjoita(key, text.trimmed());
        if (!m_seis)
            global = *v;
    }

    bool seis() const { return m_seis; }
    QString kohdistus() const { return m_kohdistus; }

private:
    void hylkaa(const QString &viesti, const QString &kentta)
    {
        Ilmoita(viesti);
        m_kohdistus = kentta;
        m_seis = true;
    }

    KantaStore *m_store;
    bool m_seis = false;
    QString m_kohdistus;
};

} // namespace

QString KauttaviivaLoppuun(const QString &kansio)
{
    if (kansio.isEmpty() || kansio.endsWith(QLatin1Char('/')))
        return kansio;
    return kansio + QLatin1Char('/');
}

void TallennaIniAsetukset(const QString &tietokanta, const QString &varmistus, bool moniseuratuki)
{
    QString kansio = KauttaviivaLoppuun(varmistus.trimmed());
    // An emptied folder means the default one, as the next start would take it.
    if (kansio.isEmpty())
        kansio = files::defaultBackupFolder();
    const QString polku = tietokanta.trimmed();

    IniStore &ini = M::IniAsetukset();
    ini.setSection(QStringLiteral("VONARI"));
    const bool ok = ini.writeString(QStringLiteral("Database"), polku)
        && ini.writeString(QStringLiteral("DatabaseBackup"), kansio)
        && ini.writeString(QStringLiteral("MultiDb"), yksiTaiNolla(moniseuratuki));
    if (!ok)
        IlmoitaVirhe(QStringLiteral("Asetustiedostoon %1 ei voitu kirjoittaa. Tarkista tiedoston kirjoitusoikeudet.")
                         .arg(ini.fileName()));
    M::DatabasePath = polku;
    M::BackupPath = kansio;
    M::MultiDb = moniseuratuki;
}

std::unique_ptr<db::Database> AvaaKantaAsetuksille()
{
    try {
        return db::Database::open(M::DatabasePath);
    } catch (const db::DbError &e) {
        switch (e.kind()) {
        case db::ErrorKind::NotFound:
        case db::ErrorKind::BadPath:
            Ilmoita(QStringLiteral("Tietokantaa ei löydy, korjaa asetuksista tietokannan nimi"));
            break;
        case db::ErrorKind::NotOurDatabase:
            // Never repaired or written: the file may be another program's data.
            IlmoitaVirhe(e.message() + QStringLiteral("\nKorjaa asetuksista tietokannan nimi."));
            break;
        case db::ErrorKind::CannotOpen:
            // A locked file or a missing permission is not damage; a repair would only make it worse.
            IlmoitaVirhe(e.message());
            break;
        default:
            KorjaaTietokanta(true);
            break;
        }
    }
    return nullptr;
}

AsetustenTallennusTulos TallennaAsetukset(const AsetuksetSyote &s)
{
    TallennaIniAsetukset(s.tTietokanta, s.tVarmistus, s.chkMoniseuratuki);

    std::unique_ptr<db::Database> kanta = AvaaKantaAsetuksille();
    std::optional<KantaStore> store;
    if (kanta) {
        try {
            // The path may be a new one.
            UpdateDatabase(*kanta);
            IlmoitaKaksoisnumeroista(*kanta);
        } catch (const db::DbError &e) {
            if (e.kind() == db::ErrorKind::Corrupt) {
                // Damage that only showed past the opening gets the same repair.
                kanta.reset();
                KorjaaTietokanta(true);
            } else {
                IlmoitaVirhe(QStringLiteral("Tietokannan päivitys ei onnistunut:\n%1").arg(e.message()));
            }
        } catch (const std::exception &e) {
            IlmoitaVirhe(QStringLiteral("Tietokannan päivitys ei onnistunut:\n%1").arg(QString::fromUtf8(e.what())));
        }
    }
    if (kanta) {
        store.emplace(*kanta);
        store->setSection(QStringLiteral("VONARI"));
    }

    Kirjoittaja k(store ? &*store : nullptr);
    k.kirjoita(QStringLiteral("AsKannassa"), QStringLiteral("1"));
    k.teksti(QStringLiteral("RegName"), s.tNimi, M::RegName);
    k.teksti(QStringLiteral("Henkilo"), s.tHenkilo, M::Henkilo);
    k.teksti(QStringLiteral("RegOsoite"), s.tOsoite, M::RegOsoite);
    k.teksti(QStringLiteral("RegPostinumero"), s.tPostinumero, M::RegPostinumero);
    k.teksti(QStringLiteral("RegPostitoimipaikka"), s.tPostitoimipaikka, M::RegPostitoimipaikka);
    k.teksti(QStringLiteral("RegPuhelin"), s.tPuhelin, M::RegPuhelin);
    k.teksti(QStringLiteral("RegFax"), s.tFax, M::RegFax);
    k.teksti(QStringLiteral("RegSeuranEmail"), s.tSeuranEmail, M::RegSeuranEmail);
    k.teksti(QStringLiteral("RegWWW"), s.tWWW, M::RegWWW);
    k.teksti(QStringLiteral("Email"), s.tEmail, M::Email);
    k.totuus(QStringLiteral("EmailSystem"), s.optEmailSystem == 1, M::EmailSystem);
    k.luku(QStringLiteral("EmailPerMin"), s.tEmailPerMin, kLongMax,
           QStringLiteral("Syötä (sähköposti) viestejä / min arvoksi ainoastaan numeroita."),
           QStringLiteral("tEmailPerMin"), M::EmailPerMin);
    const QString entinenKayttaja = M::SMTPKayttaja, entinenPalvelin = M::SMTP;
    k.teksti(QStringLiteral("SMTP"), s.tSMTP, M::SMTP);
    // An empty port means the usual one of the security.
    k.luku(QStringLiteral("SMTPPortti"), s.tSMTPPortti.trimmed().isEmpty() ? QStringLiteral("0") : s.tSMTPPortti,
           kPorttiMax, QStringLiteral("Syötä SMTP-palvelimen portiksi ainoastaan numeroita (1–65535)."),
           QStringLiteral("tSMTPPortti"), M::SMTPPortti);
    k.numero(QStringLiteral("SMTPSuojaus"), qBound(0, s.cmbSMTPSuojaus, 2), M::SMTPSuojaus);
    k.teksti(QStringLiteral("SMTPKayttaja"), s.tSMTPKayttaja.trimmed(), M::SMTPKayttaja);
    k.teksti(QStringLiteral("SMTPVarmenne"), s.tSMTPVarmenne.trimmed(), M::SMTPVarmenne);
    if (!k.seis()) {
        // The password of an account no longer in use does not stay behind.
        if (PostitilinTunnus(entinenKayttaja, entinenPalvelin) != PostitilinTunnus(M::SMTPKayttaja, M::SMTP))
            TallennaPostisalasana(entinenKayttaja, entinenPalvelin, QString());
        TallennaPostisalasana(M::SMTPKayttaja, M::SMTP, s.tSMTPSalasana);
    }
    k.teksti(QStringLiteral("RegPankkiyhteys1"), s.tPankkiyhteys1, M::RegPankkiyhteys1);
    k.teksti(QStringLiteral("RegPankkiyhteys2"), s.tPankkiyhteys2, M::RegPankkiyhteys2);
    k.teksti(QStringLiteral("YTunnus"), s.tYTunnus, M::YTunnus);
    k.teksti(QStringLiteral("Salasana"), s.tSalasana, M::Salasana);
    k.teksti(QStringLiteral("EmailPohja"), s.tEmailLaskupohja, M::EmailPohja);
    k.teksti(QStringLiteral("EmailKarhupohja"), s.tEmailKarhupohja, M::EmailKarhupohja);
    k.totuus(QStringLiteral("MultiDb"), s.chkMoniseuratuki, M::MultiDb);

    const QString marginaaliViesti = QStringLiteral("Syötä marginaaliksi ainoastaan numeroita.");
    k.luku(QStringLiteral("MargYla"), s.tMargYla, kMarginaaliMax, marginaaliViesti, QStringLiteral("tMargYla"), M::MargYla);
    k.luku(QStringLiteral("MargAla"), s.tMargAla, kMarginaaliMax, marginaaliViesti, QStringLiteral("tMargAla"), M::MargAla);
    k.luku(QStringLiteral("MargVas"), s.tMargVas, kMarginaaliMax, marginaaliViesti, QStringLiteral("tMargVas"), M::MargVas);
    k.luku(QStringLiteral("MargOik"), s.tMargOik, kMarginaaliMax, marginaaliViesti, QStringLiteral("tMargOik"), M::MargOik);
    if (!k.seis())
        M::RaporttiMarginaalit = {M::MargVas * 48, M::MargOik * 48, M::MargYla * 48, M::MargAla * 48};

    k.luku(QStringLiteral("TulostusEra"), s.tTulostusEra, kIntegerMax,
           QStringLiteral("Syötä tulostuseräksi ainoastaan numeroita."), QStringLiteral("tTulostusEra"), M::TulostusEra);
    k.luku(QStringLiteral("Laskunro"), s.tLaskunumero, kLongMax,
           QStringLiteral("Syötä laskunumeroksi ainoastaan numeroita."), QStringLiteral("tLaskunumero"), M::Laskunro);
    k.luku(QStringLiteral("Jasennro"), s.tJasennumero, kLongMax,
           QStringLiteral("Syötä jäsennumeroksi ainoastaan numeroita."), QStringLiteral("tJasennumero"), M::Jasennro);
    k.luku(QStringLiteral("VarmuuskopioPv"), s.tVarmuuskopioPv, kLongMax,
           QStringLiteral("Syötä Varmuuskopiot -kenttään ainoastaan numeroita."), QStringLiteral("tVarmuuskopioPv"),
           M::VarmuuskopioPv);
    k.teksti(QStringLiteral("Fontti"), s.cmbFonts, M::Fontti);
    // The size comes from a list of numbers; a text that is none keeps the former size.
    int koko = M::FonttiKoko;
    if (const auto n = kokonaisluku(s.cmbFonttiKoko, kIntegerMax))
        koko = int(*n);
    k.numero(QStringLiteral("FonttiKoko"), koko, M::FonttiKoko);
    k.totuus(QStringLiteral("AutoJasennumero"), s.chkJasennumero, M::AutoJasennumero);
    k.totuus(QStringLiteral("MuistutaVarm"), s.chkMuistutaVarmistuksesta, M::MuistutaVarm);
    k.totuus(QStringLiteral("LaskupohjaKaytossa"), s.chkLaskupohjaKaytossa, M::LaskupohjaKaytossa);
    k.totuus(QStringLiteral("LaskupohjaHKaytossa"), s.chkLaskupohjaHKaytossa, M::LaskupohjaHKaytossa);
    k.teksti(QStringLiteral("LaskupohjaTiedosto"), s.tLaskupohjaTiedosto, M::LaskupohjaTiedosto);
    k.teksti(QStringLiteral("LaskupohjaHTiedosto"), s.tLaskupohjaHTiedosto, M::LaskupohjaHTiedosto);
    k.desimaaliluku(QStringLiteral("Muistutuskulut"), s.tMuistutuskulut,
                    QStringLiteral("Syötä muistutuskuluksi ainoastaan numeroita."), QStringLiteral("tMuistutuskulut"),
                    M::Muistutuskulut, [](const QString &t) { return Currency::parse(t); });
    k.desimaaliluku(QStringLiteral("Viivastyskorko"), s.tViivastysKorko,
                    QStringLiteral("Syötä viivästyskoroksi ainoastaan numeroita."), QStringLiteral("tViivastysKorko"),
                    M::Viivastyskorko, [](const QString &t) { return std::optional<double>(NumeroArvo(t)); });
    k.teksti(QStringLiteral("MuistutusAlku"), s.tMuistutusAlkuteksti, M::MuistutusAlku);
    k.teksti(QStringLiteral("MuistutusLoppu"), s.tMuistutusLopputeksti, M::MuistutusLoppu);
    k.teksti(QStringLiteral("MuistutusOtsake"), s.tMuistutusOtsake, M::MuistutusOtsake);

    return {!k.seis(), k.kohdistus()};
}

bool TallennaLisaasetukset(const LisaasetuksetSyote &s)
{
    std::unique_ptr<db::Database> kanta = AvaaKantaAsetuksille();
    std::optional<KantaStore> store;
    if (kanta) {
        store.emplace(*kanta);
        store->setSection(QStringLiteral("VONARI"));
    }
    Kirjoittaja k(store ? &*store : nullptr);
    k.teksti(QStringLiteral("Suoritustiedosto"), s.tSuoritustiedosto, M::Suoritustiedosto);
    k.teksti(QStringLiteral("OsoiteTiedosto"), s.tOsoitteidenVienti, M::OsoiteTiedosto);
    k.numero(QStringLiteral("OsoiteMuoto"), qBound(0, s.optOsoitemuoto, 2), M::OsoiteMuoto);
    k.totuus(QStringLiteral("SuuretSuorituksetMaksetuksi"), s.chkSuuretSuorituksetMaksetuksi,
             M::SuuretSuorituksetMaksetuksi);
    k.totuus(QStringLiteral("SuorituksellaMaksetuksiJosEiLoppusummaa"), s.chkSuorituksellaMaksetuksiJosEiLoppusummaa,
             M::SuorituksellaMaksetuksiJosEiLoppusummaa);
    return !k.seis();
}

QString MxVastauksenKasittely(const QString &vastaus, const QString &tSMTP)
{
    if (vastaus.isEmpty()) {
        Ilmoita(QStringLiteral("Kysely ei löytänyt sähköpostipalvelinta."));
        return tSMTP;
    }
    if (tSMTP.isEmpty())
        return vastaus;
    if (tSMTP == vastaus)
        return tSMTP;
    if (Kysy(QStringLiteral("Kysely löysi palvelimen: ") + vastaus
             + QStringLiteral("\nHaluatko korvata nykyisen palvelinasetuksen?")))
        return vastaus;
    return tSMTP;
}
