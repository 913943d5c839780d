// The column report is written as an ordinary report definition and laid out by the engine, so
// that it pages, cuts and numbers as every other list. Only its rows come from elsewhere: the
// search conditions' SELECT, which the engine's own data source cannot express.
#include "reports/jasen/Sarakeraportti.h"

#include "core/Schema.h"
#include "reports/Asettelu.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Tietolahde.h"

#include <QXmlStreamWriter>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double OletusLeveys = 30; // mm
constexpr double Vali = 1.5;        // mm left free at the end of each column
constexpr double LuvunVali = 4;     // more after a number, which would touch the next column's text
constexpr double MmPisteella = 25.4 / 72;

struct Sarake {
    const RaportinKentta *kentta = nullptr; // nullptr: an empty column
    double x = 0, leveys = 0;               // mm from the left margin
    bool oikealle = false;

    double tekstille() const { return leveys - (oikealle ? LuvunVali : Vali); }
};

QString mm(double arvo)
{
    return QString::number(arvo, 'f', 2);
}

// XML cannot carry control characters; a user's text may hold one.
QString kelpaava(QString t)
{
    for (QChar &c : t)
        if (c.unicode() < 0x20 && c != u'\n')
            c = u' ';
    return t;
}

bool onLuku(const RaportinKentta &k)
{
    const SchemaField *f = Schema::kentta(k.taulu, k.kentta);
    return f && (f->laji == KenttaLaji::Long || f->laji == KenttaLaji::Integer || f->laji == KenttaLaji::Currency
                 || f->laji == KenttaLaji::Double);
}

QVector<Sarake> sijoita(const RepSettings &r, double tilaa)
{
    QVector<Sarake> s;
    double yhteensa = 0;
    for (const RapSarake &rs : r.Sarakkeet) {
        Sarake a;
        a.kentta = SarakkeenKentta(rs);
        a.leveys = rs.Width > 0 ? rs.Width : OletusLeveys;
        a.oikealle = a.kentta && onLuku(*a.kentta);
        yhteensa += a.leveys;
        s.append(a);
    }
    const double kerroin = yhteensa > tilaa ? tilaa / yhteensa : 1;
    double x = 0;
    for (Sarake &a : s) {
        a.leveys *= kerroin;
        a.x = x;
        x += a.leveys;
    }
    return s;
}

using Ominaisuudet = QList<std::pair<QString, QString>>;

class Kirjoittaja {
public:
    explicit Kirjoittaja(QByteArray *kohde) : w(kohde) {}

    QXmlStreamWriter w;

    // A text item: fixed `sisalto`, or an expression among the attributes.
    void teksti(double x, double y, double leveys, double korkeus, const QString &sisalto, const Ominaisuudet &lisat)
    {
        w.writeStartElement(u"teksti"_s);
        w.writeAttribute(u"x"_s, mm(x));
        w.writeAttribute(u"y"_s, mm(y));
        w.writeAttribute(u"leveys"_s, mm(qMax(0.5, leveys)));
        w.writeAttribute(u"korkeus"_s, mm(korkeus));
        for (const auto &[nimi, arvo] : lisat)
            w.writeAttribute(nimi, arvo);
        w.writeCharacters(kelpaava(sisalto));
        w.writeEndElement();
    }
    void viiva(double y, double leveys, double paksuus, const QString &vari = u"black"_s)
    {
        w.writeEmptyElement(u"viiva"_s);
        for (const auto &[nimi, arvo] : Ominaisuudet{{u"x1"_s, u"0"_s}, {u"y1"_s, mm(y)}, {u"x2"_s, mm(leveys)}, {u"y2"_s, mm(y)},
                                                     {u"paksuus"_s, QString::number(paksuus)}, {u"vari"_s, vari}})
            w.writeAttribute(nimi, arvo);
    }
    void osa(const QString &nimi, double korkeus)
    {
        w.writeStartElement(nimi);
        w.writeAttribute(u"korkeus"_s, mm(korkeus));
    }
};

QByteArray maaritys(const RepSettings &r, const SarakeraportinAjo &ajo, const QVector<Sarake> &sarakkeet, double leveys)
{
    QByteArray xml;
    Kirjoittaja k(&xml);
    const int koko = qBound(4, ajo.koko, 40);
    const double rivi = koko * MmPisteella * 1.45;
    k.w.writeStartDocument();
    k.w.writeStartElement(u"raportti"_s);
    k.w.writeAttribute(u"nimi"_s, kelpaava(r.Otsikkoteksti()));
    k.w.writeEmptyElement(u"sivu"_s);
    k.w.writeAttribute(u"suunta"_s, r.Orientation == RepSettings::Vaakaan ? u"vaaka"_s : u"pysty"_s);
    k.w.writeAttribute(u"ala"_s, u"10"_s);
    k.w.writeEmptyElement(u"fontti"_s);
    k.w.writeAttribute(u"nimi"_s, kelpaava(ajo.fontti));
    k.w.writeAttribute(u"koko"_s, QString::number(koko));
    k.w.writeEmptyElement(u"lahde"_s);
    k.w.writeAttribute(u"taulu"_s, u"jr"_s);

    const Ominaisuudet lihava{{u"lihava"_s, u"kyllä"_s}};
    k.osa(u"raporttiotsikko"_s, 17);
    double y = 0;
    for (const auto &[teksti, koko, korkeus] : {std::tuple{ajo.seura, 14, 7.0}, std::tuple{r.Otsikkoteksti(), 12, 6.0}}) {
        if (teksti.trimmed().isEmpty())
            continue;
        k.teksti(0, y, leveys, korkeus, teksti, lihava + Ominaisuudet{{u"koko"_s, QString::number(koko)}});
        y += korkeus;
    }
    if (!ajo.rajaus.isEmpty())
        k.teksti(0, y, leveys, 4, ajo.rajaus, {{u"koko"_s, u"10"_s}, {u"kursiivi"_s, u"kyllä"_s}, {u"kasvaa"_s, u"kyllä"_s}});
    k.w.writeEndElement();

    const auto tasaus = [](const Sarake &s) { return Ominaisuudet{{u"tasaus"_s, s.oikealle ? u"oikea"_s : u"vasen"_s}}; };
    k.osa(u"sivuotsikko"_s, rivi + 3);
    for (int i = 0; i < sarakkeet.size(); ++i)
        k.teksti(sarakkeet[i].x, 1.5, sarakkeet[i].tekstille(), rivi, r.Sarakkeet[i].Header, lihava + tasaus(sarakkeet[i]));
    k.viiva(rivi + 2.2, leveys, 0.8);
    k.w.writeEndElement();

    k.osa(u"rivi"_s, rivi + 0.6);
    for (const Sarake &s : sarakkeet)
        if (s.kentta)
            k.teksti(s.x, 0.4, s.tekstille(), rivi, {},
                     tasaus(s) + Ominaisuudet{{u"lauseke"_s, u"{%1.%2}"_s.arg(s.kentta->taulu, s.kentta->kentta)}});
    k.viiva(rivi + 0.6, leveys, 0.25, u"#b0b0b0"_s);
    k.w.writeEndElement();

    k.osa(u"sivualatunniste"_s, 8);
    k.viiva(1.5, leveys, 0.5);
    const Ominaisuudet pieni{{u"koko"_s, u"8"_s}};
    k.teksti(0, 3, leveys / 2, 4, {}, pieni + Ominaisuudet{{u"lauseke"_s, u"'Tulostettu ' + Pvm(CurrentDate)"_s}});
    k.teksti(leveys / 2, 3, leveys / 2, 4, {},
             pieni + Ominaisuudet{{u"tasaus"_s, u"oikea"_s},
                                  {u"lauseke"_s, u"'sivu ' + ToText(PageNumber) + ' / ' + ToText(TotalPages)"_s}});
    k.w.writeEndElement();

    k.w.writeEndElement();
    k.w.writeEndDocument();
    return xml;
}

// One fetched column per report column, in the report's order; a field the SELECT lacks is Null.
Rivisto hae(db::Database &db, const SarakeraportinAjo &ajo, const QVector<Sarake> &sarakkeet)
{
    Rivisto r;
    r.leveys = int(sarakkeet.size());
    try {
        db::Statement st(db, ajo.sql, ajo.arvot);
        QVector<std::pair<int, KenttaLaji>> lahteet;
        for (const Sarake &s : sarakkeet) {
            const SchemaField *f = s.kentta ? Schema::kentta(s.kentta->taulu, s.kentta->kentta) : nullptr;
            lahteet.append({s.kentta ? st.columnIndex(s.kentta->kentta) : -1, f ? f->laji : KenttaLaji::Text});
        }
        while (st.next()) {
            for (const auto &[sarake, laji] : lahteet)
                r.solut.push_back(sarake >= 0 ? KentanArvo(st.value(sarake), laji) : Arvo());
            ++r.riveja;
        }
    } catch (const db::DbError &e) {
        throw RaporttiVirhe(u"Raportin tietojen haku epäonnistui: "_s + e.message());
    }
    return r;
}

} // namespace

Asiakirja LaadiSarakeraportti(db::Database &db, const RepSettings &r, const SarakeraportinAjo &ajo)
{
    const QPageLayout::Orientation suunta = r.Orientation == RepSettings::Vaakaan ? QPageLayout::Landscape : QPageLayout::Portrait;
    const QSizeF paperi = QPageSize(QPageSize::A4).size(QPageSize::Millimeter);
    const double paperinLeveys = suunta == QPageLayout::Landscape ? paperi.height() : paperi.width();
    auto reuna = [](double twipsia) { return twipsia > 0 ? twipsia / yksikko::TwipsiaMillilla : 15.0; };
    const double leveys = paperinLeveys - reuna(ajo.reunat.left()) - reuna(ajo.reunat.right());

    const QVector<Sarake> sarakkeet = sijoita(r, leveys);
    Maaritys m = LueMaaritysTekstista(maaritys(r, ajo, sarakkeet, leveys), r.Nimi.isEmpty() ? u"raportti"_s : r.Nimi);

    // Each column's field reads its own column of the fetched rows.
    QHash<QString, int> paikat;
    for (int i = 0; i < sarakkeet.size(); ++i)
        if (sarakkeet[i].kentta && !paikat.contains(sarakkeet[i].kentta->kentta))
            paikat.insert(sarakkeet[i].kentta->kentta, i);
    for (Kohde &k : m.rivi->kohteet) {
        if (!k.lauseke)
            continue;
        std::vector<Solmu *> kentat;
        QStringList kaavat;
        KeraaViittaukset(*k.lauseke, kentat, kaavat);
        for (Solmu *s : kentat)
            s->sarake = paikat.value(s->kentta, -1);
    }

    Asetteluvalinnat v;
    v.reunat = ajo.reunat;
    v.tanaan = ajo.tanaan;
    return Aseta(m, hae(db, ajo, sarakkeet), v);
}
