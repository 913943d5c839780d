// laskutus --pohja NIMI [--kenelle kaikki|ominaisuus:NIMI|jasen:JRID] [--ei-perheellisille] [--muille]
//          [--laskupaiva PVM] [--erapaiva PVM]
// The stored template filled into the run of its kind as its window's menu fills the window,
// then that run's add button.
#include "core/MainModule.h"
#include "invoicing/Laskupohja.h"
#include "invoicing/LaskupohjaKaytto.h"
#include "invoicing/Ominaisuuslaskuajo.h"
#include "invoicing/Perhelaskuajo.h"
#include "komento/Komento.h"
#include "komento/Saajat.h"
#include "platform/arvot.h"
#include "platform/database.h"

#include <QTextStream>

namespace komento {

namespace {

// The window as it opens: today's date, the club's two accounts to choose from.
void avattuna(LaskunYlatiedot &y, const QDate &tanaan)
{
    y.tLaskunPaiva = PaivaTekstina(tanaan);
    y.cmbTilinumerot = {QString(), MainModule::RegPankkiyhteys1, MainModule::RegPankkiyhteys2};
}

// The dates of the options over the template's: a given invoice date moves the due date the
// template counts from it.
bool paivat(LaskunYlatiedot &y, const Valitsimet &v, int erapaivia, QString *virhe)
{
    for (const auto &[valitsin, kentta] : {std::pair{QStringLiteral("--laskupaiva"), &y.tLaskunPaiva},
                                           std::pair{QStringLiteral("--erapaiva"), &y.tLaskunErapaiva}}) {
        if (!v.onko(valitsin))
            continue;
        const QDate p = LuePaiva(v.arvo(valitsin));
        if (!p.isValid()) {
            *virhe = QStringLiteral("Päivämäärä %1 ei kelpaa: anna VVVV-KK-PP tai p.k.vvvv.").arg(v.arvo(valitsin));
            return false;
        }
        *kentta = PaivaTekstina(p);
        if (valitsin == u"--laskupaiva" && erapaivia > -1 && !v.onko(QStringLiteral("--erapaiva")))
            y.tLaskunErapaiva = PaivaTekstina(p.addDays(erapaivia));
    }
    return true;
}

} // namespace

int Laskutus(Yhteys &y)
{
    Valitsimet v({QStringLiteral("--pohja"), QStringLiteral("--kenelle"), QStringLiteral("--laskupaiva"), QStringLiteral("--erapaiva")},
                 {QStringLiteral("--ei-perheellisille"), QStringLiteral("--muille")});
    QString virhe;
    if (!v.lue(y.argumentit, &virhe))
        return Virhe(virhe, VaaraKaytto);
    if (!v.onko(QStringLiteral("--pohja")) || !v.paikalliset.isEmpty())
        return Virhe(QStringLiteral("Anna laskupohjan nimi: --pohja NIMI."), VaaraKaytto);
    db::Database &db = y.ajo.kanta;

    cLaskupohjat pohjat;
    pohjat.Lataa(db, -1);
    const cLaskupohja *pohja = nullptr;
    for (int i = 0; i < pohjat.Count() && !pohja; ++i)
        if (pohjat.Item(i).Nimi() == v.arvo(QStringLiteral("--pohja")))
            pohja = &pohjat.Item(i);
    if (!pohja)
        return Virhe(QStringLiteral("Laskupohjaa %1 ei löydy.").arg(v.arvo(QStringLiteral("--pohja"))), Epaonnistui);
    int tila = VaaraKaytto;
    const std::optional<LaskunSaajat> kenelle = LueSaajat(db, v, &virhe, &tila);
    if (!kenelle)
        return Virhe(virhe, tila);

    Laskutustulos tulos;
    const auto valmista = [&](auto &lomake) {
        avattuna(lomake, y.ajo.tanaan);
        lomake.saajat = *kenelle;
    };
    if (pohja->Laskutyyppi() == laskupohja::Perhe) {
        PerheLomake l;
        valmista(l);
        KaytaLaskupohjaa(*pohja, l);
        if (!paivat(l, v, pohja->LaskunErapaiva(), &virhe))
            return Virhe(virhe, VaaraKaytto);
        tulos = LisaaPerhelaskut(y.ajo, l, false);
    } else if (pohja->Laskutyyppi() == laskupohja::Ominaisuus) {
        OminaisuusAjo l;
        valmista(l);
        QVector<qint64> piIdt{0};
        db::Statement st(db, QStringLiteral("SELECT piID FROM pi"));
        while (st.next())
            piIdt << NullLong(st.value(0));
        KaytaLaskupohjaa(*pohja, l, piIdt);
        if (!paivat(l, v, pohja->LaskunErapaiva(), &virhe))
            return Virhe(virhe, VaaraKaytto);
        tulos = LisaaOminaisuuslaskut(y.ajo, l, false);
    } else {
        MaksujenLuontiLomake l;
        valmista(l);
        KaytaLaskupohjaa(*pohja, l);
        if (!paivat(l, v, pohja->LaskunErapaiva(), &virhe))
            return Virhe(virhe, VaaraKaytto);
        l.tSumma = RivienLoppusumma(l.rivit);
        tulos = LisaaJasenmaksut(y.ajo, l, false);
    }
    if (tulos.virhe)
        return Virhe(tulos.virhe->viesti, Epaonnistui);
    if (tulos.lisatty == 0)
        return Virhe(tulos.viesti, Epaonnistui);
    QTextStream(stdout) << tulos.viesti << Qt::endl;
    return Onnistui;
}

} // namespace komento
