#include "core/AsetustenLuku.h"
#include "platform/kello.h"

#include "core/MainModule.h"
#include "platform/arvot.h"
#include "platform/files.h"

#include <cmath>
#include <limits>

namespace {

constexpr qint64 LongMin = std::numeric_limits<qint32>::min();
constexpr qint64 LongMax = std::numeric_limits<qint32>::max();
constexpr qint64 IntegerMin = std::numeric_limits<qint16>::min();
constexpr qint64 IntegerMax = std::numeric_limits<qint16>::max();

// Reads one store with the conversions of its keys' types.
class Lukija {
public:
    explicit Lukija(const AsetuksenLukija &lue) : m_lue(lue) {}

    QString teksti(const char *avain, const QString &oletus = {}) const
    {
        return m_lue(QLatin1String(avain), oletus);
    }

    long pitka(const char *avain, long oletus) const
    {
        return long(KokonaislukuArvo(teksti(avain, QString::number(oletus)), LongMin, LongMax).value_or(oletus));
    }

    // A counter that has no default keeps what it had when the stored text is no number.
    void pitkaTaiEntinen(const char *avain, long &arvo) const
    {
        if (const auto n = KokonaislukuArvo(teksti(avain), LongMin, LongMax))
            arvo = long(*n);
    }

    int kokonais(const char *avain, int oletus) const
    {
        return int(KokonaislukuArvo(teksti(avain, QString::number(oletus)), IntegerMin, IntegerMax).value_or(oletus));
    }

    bool totuus(const char *avain) const { return std::abs(NumeroArvo(teksti(avain, QStringLiteral("0")))) != 0; }

    Currency raha(const char *avain) const
    {
        const QString t = teksti(avain);
        return OnNumeerinen(t) ? Currency::parse(t).value_or(Currency()) : Currency();
    }

    double liukuluku(const char *avain) const
    {
        const QString t = teksti(avain);
        const double d = OnNumeerinen(t) ? NumeroArvo(t) : 0;
        return std::isfinite(d) ? d : 0;
    }

private:
    const AsetuksenLukija &m_lue;
};

} // namespace

std::optional<qint64> KokonaislukuArvo(const QString &teksti, qint64 min, qint64 max)
{
    if (!OnNumeerinen(teksti))
        return std::nullopt;
    const double d = std::nearbyint(NumeroArvo(teksti));
    if (!(d >= double(min) && d <= double(max)))
        return std::nullopt;
    return qint64(d);
}

QString OhjelmanTiedosto(const QString &nimi) { return files::joinPath(files::programFolder(), nimi); }

std::optional<QString> LueSeuranAsetukset(const AsetuksenLukija &lue)
{
    using namespace MainModule;
    const Lukija l(lue);
    RegName = l.teksti("RegName");
    Henkilo = l.teksti("Henkilo");
    RegOsoite = l.teksti("RegOsoite");
    RegPostinumero = l.teksti("RegPostinumero");
    RegPostitoimipaikka = l.teksti("RegPostitoimipaikka");
    RegPuhelin = l.teksti("RegPuhelin");
    RegFax = l.teksti("RegFax");
    Email = l.teksti("Email");
    RegSeuranEmail = l.teksti("RegSeuranEmail");
    RegWWW = l.teksti("RegWWW");
    SMTP = l.teksti("SMTP");
    EmailPerMin = l.pitka("EmailPerMin", 0);
    EmailSystem = l.pitka("EmailSystem", 0) == 1;
    RegPankkiyhteys1 = l.teksti("RegPankkiyhteys1");
    RegPankkiyhteys2 = l.teksti("RegPankkiyhteys2");
    YTunnus = l.teksti("YTunnus");
    EmailPohja = l.teksti("EmailPohja", OhjelmanTiedosto(QStringLiteral("lasku.txt")));
    EmailKarhupohja = l.teksti("EmailKarhupohja", OhjelmanTiedosto(QStringLiteral("karhu.txt")));
    Salasana = l.teksti("Salasana");
    ViiteHakemisto = l.teksti("ViiteHakemisto", files::programFolder());
    l.pitkaTaiEntinen("Laskunro", Laskunro);
    l.pitkaTaiEntinen("Jasennro", Jasennro);

    std::optional<QString> takaisin;
    const QDate paiva = ParsePaiva(l.teksti("BackupDate"));
    if (paiva.isValid()) {
        BackupDate = paiva;
    } else {
        // A fresh club counts as backed up today, so the reminder does not greet its first start.
        BackupDate = kello::tanaan();
        takaisin = BackupDate.toString(Qt::ISODate);
    }

    VarmuuskopioPv = l.pitka("VarmuuskopioPv", 30);
    AutoJasennumero = l.totuus("AutoJasennumero");
    MuistutaVarm = l.totuus("MuistutaVarm");
    LaskupohjaKaytossa = l.totuus("LaskupohjaKaytossa");
    LaskupohjaHKaytossa = l.totuus("LaskupohjaHKaytossa");
    LaskupohjaTiedosto = l.teksti("LaskupohjaTiedosto");
    LaskupohjaHTiedosto = l.teksti("LaskupohjaHTiedosto");
    Muistutuskulut = l.raha("Muistutuskulut");
    Viivastyskorko = l.liukuluku("Viivastyskorko");
    MuistutusOtsake = l.teksti("MuistutusOtsake");
    MuistutusAlku = l.teksti("MuistutusAlku");
    MuistutusLoppu = l.teksti("MuistutusLoppu");
    TulostusEra = l.kokonais("TulostusEra", 0);
    Suoritustiedosto = l.teksti("Suoritustiedosto");
    OsoiteTiedosto = l.teksti("OsoiteTiedosto");
    OsoiteMuoto = l.kokonais("OsoiteMuoto", 0);
    SuuretSuorituksetMaksetuksi = l.totuus("SuuretSuorituksetMaksetuksi");
    SuorituksellaMaksetuksiJosEiLoppusummaa = l.totuus("SuorituksellaMaksetuksiJosEiLoppusummaa");
    Fontti = l.teksti("Fontti", QStringLiteral("Times New Roman"));
    FonttiKoko = l.kokonais("FonttiKoko", 10);
    MargOik = l.kokonais("MargOik", 0);
    MargVas = l.kokonais("MargVas", 0);
    MargYla = l.kokonais("MargYla", 0);
    MargAla = l.kokonais("MargAla", 0);
    return takaisin;
}
