#include "core/Asetusavaimet.h"

#include "core/MainModule.h"
#include "platform/files.h"

namespace {

using L = AsetusLaji;
constexpr AsetusVarasto Ini = AsetusVarasto::Ini;
constexpr AsetusVarasto Kanta = AsetusVarasto::Kanta;

std::vector<Asetusavain> rakenna()
{
    using namespace MainModule;
    return {
        {"Database", L::Teksti, "", Ini, &DatabasePath},
        {"DatabaseBackup", L::Teksti, "", Ini, &BackupPath},
        {"MultiDb", L::Totuus, "0", Ini, &MultiDb}, // the settings window keeps a copy in the club too

        {"RegName", L::Teksti, "", Kanta, &RegName},
        {"Henkilo", L::Teksti, "", Kanta, &Henkilo},
        {"RegOsoite", L::Teksti, "", Kanta, &RegOsoite},
        {"RegPostinumero", L::Teksti, "", Kanta, &RegPostinumero},
        {"RegPostitoimipaikka", L::Teksti, "", Kanta, &RegPostitoimipaikka},
        {"RegPuhelin", L::Teksti, "", Kanta, &RegPuhelin},
        {"RegFax", L::Teksti, "", Kanta, &RegFax},
        {"Email", L::Teksti, "", Kanta, &Email},
        {"RegSeuranEmail", L::Teksti, "", Kanta, &RegSeuranEmail},
        {"RegWWW", L::Teksti, "", Kanta, &RegWWW},
        {"SMTP", L::Teksti, "", Kanta, &SMTP},
        {"EmailPerMin", L::Pitka, "0", Kanta, &EmailPerMin},
        {"EmailSystem", L::YksiOnTosi, "0", Kanta, &EmailSystem},
        {"SMTPPortti", L::Pitka, "0", Kanta, &SMTPPortti},
        {"SMTPSuojaus", L::Kokonais, "0", Kanta, &SMTPSuojaus},
        {"SMTPKayttaja", L::Teksti, "", Kanta, &SMTPKayttaja},
        {"SMTPVarmenne", L::Teksti, "", Kanta, &SMTPVarmenne},
        {"RegPankkiyhteys1", L::Teksti, "", Kanta, &RegPankkiyhteys1},
        {"RegPankkiyhteys2", L::Teksti, "", Kanta, &RegPankkiyhteys2},
        {"YTunnus", L::Teksti, "", Kanta, &YTunnus},
        {"EmailPohja", L::Teksti, "lasku.txt", Kanta, &EmailPohja, OletusTapa::OhjelmanTiedosto},
        {"EmailKarhupohja", L::Teksti, "karhu.txt", Kanta, &EmailKarhupohja, OletusTapa::OhjelmanTiedosto},
        {"Salasana", L::Teksti, "", Kanta, &Salasana},
        {"ViiteHakemisto", L::Teksti, "", Kanta, &ViiteHakemisto, OletusTapa::OhjelmanKansio},
        {"Laskunro", L::Laskuri, "", Kanta, &Laskunro},
        {"Jasennro", L::Laskuri, "", Kanta, &Jasennro},
        {"BackupDate", L::Paiva, "", Kanta, &BackupDate},
        {"VarmuuskopioPv", L::Pitka, "30", Kanta, &VarmuuskopioPv},
        {"AutoJasennumero", L::Totuus, "0", Kanta, &AutoJasennumero},
        {"MuistutaVarm", L::Totuus, "0", Kanta, &MuistutaVarm},
        {"LaskupohjaKaytossa", L::Totuus, "0", Kanta, &LaskupohjaKaytossa},
        {"LaskupohjaHKaytossa", L::Totuus, "0", Kanta, &LaskupohjaHKaytossa},
        {"LaskupohjaTiedosto", L::Teksti, "", Kanta, &LaskupohjaTiedosto},
        {"LaskupohjaHTiedosto", L::Teksti, "", Kanta, &LaskupohjaHTiedosto},
        {"Muistutuskulut", L::Raha, "", Kanta, &Muistutuskulut},
        {"Viivastyskorko", L::Liukuluku, "", Kanta, &Viivastyskorko},
        {"MuistutusOtsake", L::Teksti, "", Kanta, &MuistutusOtsake},
        {"MuistutusAlku", L::Teksti, "", Kanta, &MuistutusAlku},
        {"MuistutusLoppu", L::Teksti, "", Kanta, &MuistutusLoppu},
        {"TulostusEra", L::Kokonais, "0", Kanta, &TulostusEra},
        {"Suoritustiedosto", L::Teksti, "", Kanta, &Suoritustiedosto},
        {"OsoiteTiedosto", L::Teksti, "", Kanta, &OsoiteTiedosto},
        {"OsoiteMuoto", L::Kokonais, "0", Kanta, &OsoiteMuoto},
        {"SuuretSuorituksetMaksetuksi", L::Totuus, "0", Kanta, &SuuretSuorituksetMaksetuksi},
        {"SuorituksellaMaksetuksiJosEiLoppusummaa", L::Totuus, "0", Kanta, &SuorituksellaMaksetuksiJosEiLoppusummaa},
        {"Fontti", L::Teksti, "Times New Roman", Kanta, &Fontti},
        {"FonttiKoko", L::Kokonais, "10", Kanta, &FonttiKoko},
        {"MargOik", L::Kokonais, "0", Kanta, &MargOik},
        {"MargVas", L::Kokonais, "0", Kanta, &MargVas},
        {"MargYla", L::Kokonais, "0", Kanta, &MargYla},
        {"MargAla", L::Kokonais, "0", Kanta, &MargAla},
    };
}

} // namespace

QString Asetusavain::oletusTeksti() const
{
    const QString teksti = QString::fromUtf8(oletus);
    switch (tapa) {
    case OletusTapa::OhjelmanTiedosto: return files::joinPath(files::programFolder(), teksti);
    case OletusTapa::OhjelmanKansio: return files::programFolder();
    case OletusTapa::Sellaisenaan: break;
    }
    return teksti;
}

const std::vector<Asetusavain> &Asetusavaimet()
{
    static const std::vector<Asetusavain> taulu = rakenna();
    return taulu;
}
