#include "reports/Asettelu.h"
#include "platform/kello.h"

#include "platform/files.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Tekstinmitta.h"

#include <QFileInfo>
#include <cmath>

namespace {

constexpr double Vara = 0.5; // twips of rounding that never pushes a band to the next page

struct ValmisKohde {
    const Kohde *k = nullptr;
    int fontti = -1;
    bool kokonaissivut = false;
    QString kuva; // resolved path of an image
};

struct ValmisOsa {
    const Osa *o = nullptr;
    std::vector<ValmisKohde> kohteet;
};

// One band made for one row: items relative to the band's top-left corner.
struct Ilmentyma {
    double korkeus = 0;
    std::vector<Tulostekohde> kohteet;
    std::vector<bool> kokonaissivut; // per item: holds the TotalPages mark
};

class Asettelija {
public:
    // `kokonaismaara`: the pages of the whole report when a counting pass has told them.
    Asettelija(const Maaritys &m, Rivilahde &r, const Asetteluvalinnat &v, Sivuvirta &ulos, std::optional<int> kokonaismaara)
        : m_m(m), m_lahde(r), m_v(v), m_ulos(ulos), m_kokonaismaara(kokonaismaara)
    {
        m_d.nimi = m.nimi.isEmpty() ? m.tiedosto : m.nimi;
        m_d.sivukoko = m.sivukoko;
        m_d.suunta = m.suunta;
        m_d.koko = m.sivunKoko();
        m_d.riveja = r.riveja();
        const QMarginsF ohitus = m.reunatLukittu ? QMarginsF() : v.reunat;
        m_reunat = QMarginsF(ohitus.left() > 0 ? ohitus.left() : m.reunat.left(), ohitus.top() > 0 ? ohitus.top() : m.reunat.top(),
                             ohitus.right() > 0 ? ohitus.right() : m.reunat.right(),
                             ohitus.bottom() > 0 ? ohitus.bottom() : m.reunat.bottom());
        m_arv.kaavat = &v.kaavat;
        m_arv.tanaan = v.tanaan.isValid() ? v.tanaan : v.ajo ? v.ajo->tanaan : kello::tanaan();
        valmistele();
        for (const Ryhma &r : m.ryhmat)
            m_omatSivut = m_omatSivut || r.omaSivutus;
    }

    // TotalPages of the whole report is shown: a first pass must count the pages.
    bool tarvitseeLaskennan() const { return m_kokonaissivujaKaytetaan && !m_omatSivut && !m_kokonaismaara; }

    // Lays out and hands every page on; gives the number of pages.
    // `kierros` of `kierroksia` passes over the rows, for the progress shown.
    int aseta(int kierros = 0, int kierroksia = 1)
    {
        const double alatunniste = m_sivualatunniste.o ? m_sivualatunniste.o->korkeus : 0;
        m_ala = m_d.koko.height() - m_reunat.bottom() - alatunniste;
        const double otsikko = m_sivuotsikko.o ? m_sivuotsikko.o->korkeus : 0;
        if (m_ala - m_reunat.top() - otsikko < yksikko::TwipsiaMillilla * 5)
            throw RaporttiVirhe(QStringLiteral("Raportin %1 marginaalit, sivuotsikko ja sivualatunniste ovat niin suuret, "
                                               "ettei sivulle mahdu mitään.").arg(m_m.tiedosto));
        m_lahde.alusta();
        const int kaikki = m_lahde.riveja();
        const Rivisto *ensimmainen = m_lahde.seuraava();
        otaRivit(ensimmainen ? ensimmainen : &m_tyhja, 0);
        m_rivi = m_r->riveja > 0 ? 0 : -1;
        m_ulos.alku(m_d);
        aloitaSivu(true);
        const int tasoja = int(m_ryhmat.size());
        std::vector<int> alku(size_t(tasoja), 0);
        for (;;) {
            asetaRivit(alku, kierros, kierroksia, kaikki);
            const int edelliset = m_alkuRivi + m_r->riveja; // the source may reuse the rows it gave
            const Rivisto *seuraava = m_lahde.lopussa() ? nullptr : m_lahde.seuraava();
            if (!seuraava)
                break;
            otaRivit(seuraava, edelliset);
        }
        const int n = m_r->riveja;
        m_rivi = n - 1;
        if (m_raporttialatunniste.o)
            sijoita(m_raporttialatunniste, n - 1, 0, n);
        lopetaSivu();
        suljeJakso();
        m_ulos.loppu(m_alkuRivi + n);
        return m_annetut;
    }

private:
    // The rows at hand: whole outermost groups, the first of them the `alkuRivi`th of the report.
    void otaRivit(const Rivisto *r, int alkuRivi)
    {
        m_r = r;
        m_arv.rivit = r;
        m_alkuRivi = alkuRivi;
        ryhmittele();
    }

    // Lays out the rows at hand and closes their groups: the next rows, if any, begin a new
    // outermost group.
    void asetaRivit(std::vector<int> &alku, int kierros, int kierroksia, int kaikki)
    {
        const int n = m_r->riveja, tasoja = int(m_ryhmat.size());
        for (int i = 0; i < n; ++i) {
            if (m_v.ajo)
                m_v.ajo->askel(qint64(kierros) * kaikki + m_alkuRivi + i, qint64(kierroksia) * kaikki);
            m_rivi = i;
            const int muutos = m_muutos[size_t(i)];
            if (i > 0 && muutos > 0)
                for (int t = tasoja; t >= muutos; --t)
                    suljeRyhma(t, alku[size_t(t - 1)], i);
            if (muutos > 0)
                for (int t = muutos; t <= tasoja; ++t) {
                    alku[size_t(t - 1)] = i;
                    avaaRyhma(t, i);
                }
            if (m_rivinOsa.o) {
                const int a = tasoja ? alku[size_t(tasoja - 1)] : 0;
                const int l = tasoja ? m_loppu[size_t(tasoja - 1)][size_t(a)] : n;
                // The last row of a group keeps the footers that close after it on its page.
                m_pidaMukana = 0;
                for (int t = 1; t <= tasoja; ++t)
                    if ((i + 1 == n || (m_muutos[size_t(i + 1)] != 0 && m_muutos[size_t(i + 1)] <= t)) && m_ryhmat[size_t(t - 1)].second.o)
                        m_pidaMukana += m_ryhmat[size_t(t - 1)].second.o->korkeus;
                sijoita(m_rivinOsa, i, a, l);
                m_pidaMukana = 0;
            }
        }
        if (n > 0)
            for (int t = tasoja; t >= 1; --t)
                suljeRyhma(t, alku[size_t(t - 1)], n);
    }

    // --- preparation ---
    int fontti(const FonttiMaaritys &f)
    {
        const QString avain = QStringLiteral("%1|%2|%3%4%5").arg(f.nimi).arg(f.koko).arg(f.lihava.value_or(false)).arg(f.kursiivi.value_or(false)).arg(f.alleviivattu.value_or(false));
        const auto it = m_fontit.constFind(avain);
        if (it != m_fontit.constEnd())
            return *it;
        QFont q(f.nimi);
        q.setPixelSize(qMax(1, qRound(f.koko * yksikko::TwipsiaPisteella)));
        q.setBold(f.lihava.value_or(false));
        q.setItalic(f.kursiivi.value_or(false));
        q.setUnderline(f.alleviivattu.value_or(false));
        q.setHintingPreference(QFont::PreferNoHinting);
        q.setKerning(false);
        m_d.fontit.push_back(q);
        m_mitat.emplace_back(q);
        return *m_fontit.insert(avain, int(m_d.fontit.size()) - 1);
    }

    ValmisOsa valmista(const Osa *o)
    {
        ValmisOsa v;
        v.o = o;
        if (!o)
            return v;
        if (o->nakyy)
            TarkistaLauseke(*o->nakyy, m_v.kaavat, QStringLiteral("Raportin määrittely %1, osan näkyvyys").arg(m_m.tiedosto));
        for (const Kohde &k : o->kohteet) {
            const QString missa = QStringLiteral("Raportin määrittely %1, %2").arg(m_m.tiedosto, k.tunnus);
            ValmisKohde vk;
            vk.k = &k;
            for (const auto &puu : {k.lauseke, k.nakyy})
                if (puu) {
                    TarkistaLauseke(*puu, m_v.kaavat, missa);
                    vk.kokonaissivut = vk.kokonaissivut || KayttaaKokonaissivuja(*puu, m_v.kaavat);
                }
            m_kokonaissivujaKaytetaan = m_kokonaissivujaKaytetaan || vk.kokonaissivut;
            if (k.laji == KohdeLaji::Teksti) {
                FonttiMaaritys f = m_m.fontti;
                YhdistaFontti(f, o->fontti);
                YhdistaFontti(f, k.fontti);
                if (k.osiofontti)
                    for (const Osiofontti &of : m_v.osiofontit)
                        if (OsiofonttiKoskee(of, *o)) {
                            FonttiMaaritys p;
                            p.nimi = of.nimi;
                            p.koko = of.koko;
                            p.lihava = of.lihava;
                            p.kursiivi = of.kursiivi;
                            p.alleviivattu = of.alleviivattu;
                            YhdistaFontti(f, p);
                        }
                vk.fontti = fontti(f);
            }
            if (k.laji == KohdeLaji::Kuva) {
                vk.kuva = k.teksti;
                if (!vk.kuva.startsWith(QLatin1Char(':')) && QFileInfo(vk.kuva).isRelative())
                    vk.kuva = files::joinPath(files::programFolder(), vk.kuva);
                if (!QFileInfo(vk.kuva).isFile()) {
                    if (!k.valinnainen)
                        throw RaporttiVirhe(QStringLiteral("%1: kuvaa %2 ei löydy.").arg(missa, k.teksti));
                    continue; // the club has no logo: the page goes without it
                }
            }
            v.kohteet.push_back(vk);
        }
        return v;
    }

    void valmistele()
    {
        m_raporttiotsikko = valmista(m_m.raporttiotsikko ? &*m_m.raporttiotsikko : nullptr);
        m_sivuotsikko = valmista(m_m.sivuotsikko ? &*m_m.sivuotsikko : nullptr);
        m_rivinOsa = valmista(m_m.rivi ? &*m_m.rivi : nullptr);
        m_sivualatunniste = valmista(m_m.sivualatunniste ? &*m_m.sivualatunniste : nullptr);
        m_raporttialatunniste = valmista(m_m.raporttialatunniste ? &*m_m.raporttialatunniste : nullptr);
        for (const Ryhma &r : m_m.ryhmat) {
            TarkistaLauseke(*r.lauseke, m_v.kaavat, QStringLiteral("Raportin määrittely %1, ryhmä %2").arg(m_m.tiedosto, r.lausekeTeksti));
            m_ryhmat.push_back({valmista(r.otsikko ? &*r.otsikko : nullptr), valmista(r.alatunniste ? &*r.alatunniste : nullptr)});
        }
    }

    // For each row the outermost group level whose value changes there (1 = outermost; 0 = none),
    // and for each level where each group that starts at a row ends.
    void ryhmittele()
    {
        const int n = m_r->riveja, tasoja = int(m_m.ryhmat.size());
        m_muutos.assign(size_t(n), 0);
        m_loppu.assign(size_t(tasoja), std::vector<int>(size_t(n), n));
        std::vector<Arvo> edelliset(static_cast<size_t>(tasoja));
        Arviointi a = m_arv;
        for (int i = 0; i < n && tasoja > 0; ++i) {
            a.rivi = i;
            for (int t = 0; t < tasoja; ++t) {
                Arvo arvo = Arvioi(*m_m.ryhmat[size_t(t)].lauseke, a);
                const bool sama = i > 0 && (onTyhja(arvo) ? onTyhja(edelliset[size_t(t)]) : VertaaArvoja(arvo, edelliset[size_t(t)]) == 0);
                if (!sama && m_muutos[size_t(i)] == 0)
                    m_muutos[size_t(i)] = t + 1;
                edelliset[size_t(t)] = std::move(arvo);
            }
        }
        for (int t = 0; t < tasoja; ++t) {
            int loppu = n;
            for (int i = n - 1; i >= 0; --i) {
                m_loppu[size_t(t)][size_t(i)] = loppu;
                if (m_muutos[size_t(i)] != 0 && m_muutos[size_t(i)] <= t + 1)
                    loppu = i;
            }
        }
    }

    // --- building one band ---
    void tekstiksi(const ValmisKohde &vk, const Arviointi &a, Ilmentyma &il, double &korkeus)
    {
        const Kohde &k = *vk.k;
        QString teksti = k.lauseke ? Muotoile(Arvioi(*k.lauseke, a), k.muoto) : k.teksti;
        const QRectF alue = k.alue;
        if (k.tausta.isValid()) {
            Tulostekohde t;
            t.laji = KohdeLaji::Laatikko;
            t.alue = alue;
            t.tausta = k.tausta.rgba();
            il.kohteet.push_back(t);
            il.kokonaissivut.push_back(false);
        }
        if (teksti.isEmpty())
            return;
        if (k.kierto != 0) {
            // One line along the box's height, as the giro slip's vertical title.
            Tulostekohde t;
            t.laji = KohdeLaji::Teksti;
            t.alue = alue;
            t.teksti = teksti.replace(QLatin1Char('\n'), QLatin1Char(' '));
            t.fontti = vk.fontti;
            t.tasaus = int(k.tasaus & Qt::AlignHorizontal_Mask);
            t.vari = k.vari.rgba();
            t.kierto = k.kierto;
            il.kohteet.push_back(t);
            il.kokonaissivut.push_back(vk.kokonaissivut);
            return;
        }
        Mittari &fm = m_mitat[size_t(vk.fontti)];
        const double rivivali = fm.fm().lineSpacing();
        // The mark of TotalPages is measured as if it were three digits wide.
        const QString mitattava = QStringLiteral("999");
        auto leveys = [&](const QString &s) {
            return fm.leveys(vk.kokonaissivut ? QString(s).replace(KokonaissivutMerkki, mitattava) : s);
        };
        QStringList rivit;
        for (const QString &kappale : teksti.split(QLatin1Char('\n'))) {
            if (k.rivita)
                rivit += Rivita(kappale, alue.width(), fm);
            else if (leveys(kappale) <= alue.width())
                rivit << kappale;
            else
                rivit << fm.fm().elidedText(kappale, Qt::ElideRight, alue.width());
        }
        double ylin = alue.top();
        if (k.kasvaa) {
            korkeus = qMax(korkeus, alue.top() + qMax(alue.height(), rivit.size() * rivivali));
        } else {
            const int mahtuu = qMax(1, int(std::floor(alue.height() / rivivali + 0.01)));
            if (rivit.size() > mahtuu)
                rivit = rivit.mid(0, mahtuu);
            const double vapaa = alue.height() - rivit.size() * rivivali;
            if (k.tasaus & Qt::AlignVCenter)
                ylin += vapaa / 2;
            else if (k.tasaus & Qt::AlignBottom)
                ylin += vapaa;
        }
        for (int i = 0; i < rivit.size(); ++i) {
            if (rivit[i].isEmpty())
                continue;
            Tulostekohde t;
            t.laji = KohdeLaji::Teksti;
            t.alue = QRectF(alue.left(), ylin + i * rivivali, alue.width(), rivivali);
            t.teksti = rivit[i];
            t.fontti = vk.fontti;
            t.tasaus = int(k.tasaus & Qt::AlignHorizontal_Mask);
            t.vari = k.vari.rgba();
            il.kohteet.push_back(t);
            il.kokonaissivut.push_back(vk.kokonaissivut);
        }
    }

    Ilmentyma rakenna(const ValmisOsa &vo, const Arviointi &a)
    {
        Ilmentyma il;
        double korkeus = vo.o->korkeus;
        for (const ValmisKohde &vk : vo.kohteet) {
            const Kohde &k = *vk.k;
            if (k.nakyy && !ArvioiEhto(*k.nakyy, a))
                continue;
            if (k.laji == KohdeLaji::Teksti) {
                tekstiksi(vk, a, il, korkeus);
                continue;
            }
            Tulostekohde t;
            t.laji = k.laji;
            t.alue = k.alue;
            t.paksuus = float(k.paksuus);
            t.vari = k.vari.rgba();
            if (k.tausta.isValid())
                t.tausta = k.tausta.rgba();
            if (k.laji == KohdeLaji::Kuva)
                t.teksti = vk.kuva;
            else if (k.lauseke)
                t.teksti = ArvoTekstina(Arvioi(*k.lauseke, a));
            if ((k.laji == KohdeLaji::Viivakoodi || k.laji == KohdeLaji::QrKoodi) && t.teksti.isEmpty())
                continue;
            il.kohteet.push_back(t);
            il.kokonaissivut.push_back(false);
        }
        il.korkeus = korkeus;
        return il;
    }

    // --- placing ---
    Arviointi arviointi(int rivi, int alku, int loppu) const
    {
        Arviointi a = m_arv;
        a.rivi = rivi;
        a.koosteAlku = qMax(0, alku);
        a.koosteLoppu = qMax(a.koosteAlku, loppu);
        a.sivu = sivuNyt() - m_jaksonAlku + 1;
        a.edellisetRivit = m_alkuRivi;
        return a;
    }

    void lisaa(Ilmentyma &il, double x, double y)
    {
        Sivu &s = m_d.sivut.back();
        for (size_t i = 0; i < il.kohteet.size(); ++i) {
            Tulostekohde &t = il.kohteet[i];
            t.alue.translate(x, y);
            if (il.kokonaissivut[i])
                m_kokonaissivut.push_back({int(m_d.sivut.size()) - 1, int(s.kohteet.size())});
            s.kohteet.push_back(std::move(t));
        }
    }

    // The page being laid out, counted from the report's first.
    int sivuNyt() const { return m_annetut + int(m_d.sivut.size()) - 1; }

    // `uusiJakso`: the page starts a group with pages of its own; the pages before it are final.
    void aloitaSivu(bool ensimmainen, bool uusiJakso = false)
    {
        if (uusiJakso) {
            suljeJakso();
            m_jaksonAlku = m_annetut;
        }
        m_d.sivut.emplace_back();
        m_y = m_reunat.top();
        m_sisaltoa = false;
        m_sarake = 0;
        m_sivunEnsimmainen = m_rivi;
        if (ensimmainen && m_raporttiotsikko.o)
            sijoita(m_raporttiotsikko, m_rivi, 0, m_r->riveja);
        if (m_sivuotsikko.o) {
            const Osa &o = *m_sivuotsikko.o;
            if (!o.nakyy || ArvioiEhto(*o.nakyy, arviointi(m_rivi, 0, m_r->riveja))) {
                Ilmentyma il = rakenna(m_sivuotsikko, arviointi(m_rivi, 0, m_r->riveja));
                lisaa(il, m_reunat.left(), m_y);
                m_y += il.korkeus;
            }
        }
        m_sisaltoa = false;
    }

    void lopetaSivu()
    {
        suljeSarakerivi();
        if (m_sivualatunniste.o) {
            const Osa &o = *m_sivualatunniste.o;
            const int viimeinen = m_rivi;
            const Arviointi a = arviointi(viimeinen, m_sivunEnsimmainen, viimeinen + 1);
            if (!o.nakyy || ArvioiEhto(*o.nakyy, a)) {
                Ilmentyma il = rakenna(m_sivualatunniste, a);
                lisaa(il, m_reunat.left(), m_d.koko.height() - m_reunat.bottom() - o.korkeus);
            }
        }
        // A page waits only while its TotalPages is not known.
        if (!m_kokonaissivujaKaytetaan || m_kokonaismaara)
            luovuta(m_kokonaismaara.value_or(0));
    }

    void uusiSivu(bool uusiJakso = false)
    {
        lopetaSivu();
        aloitaSivu(false, uusiJakso);
    }

    // The finished pages go on, TotalPages filled in with `kokonaismaara`.
    void luovuta(int kokonaismaara)
    {
        const QString n = QString::number(kokonaismaara);
        for (const auto &[sivu, kohde] : m_kokonaissivut)
            m_d.sivut[size_t(sivu)].kohteet[size_t(kohde)].teksti.replace(KokonaissivutMerkki, n);
        m_kokonaissivut.clear();
        m_annetut += int(m_d.sivut.size());
        for (Sivu &s : m_d.sivut)
            m_ulos.sivu(std::move(s));
        m_d.sivut.clear();
    }

    // The pages counted together (a group with pages of its own, or the whole report) are all
    // laid out: their TotalPages is now known.
    void suljeJakso()
    {
        if (!m_d.sivut.empty())
            luovuta(m_kokonaismaara.value_or(m_annetut + int(m_d.sivut.size()) - m_jaksonAlku));
    }

    void suljeSarakerivi()
    {
        if (m_lohkossa > 0) {
            m_y = m_lohkoYla + qMin(m_lohkossa, m_sarakkeessa) * m_askel;
            m_lohkossa = 0;
        }
        if (m_sarake == 0)
            return;
        m_y = m_riviYla + m_riviKorkeus + m_rivinOsa.o->pystyvali;
        m_sarake = 0;
        m_riviKorkeus = 0;
    }

    void sijoita(const ValmisOsa &vo, int rivi, int alku, int loppu)
    {
        const Osa &o = *vo.o;
        const Arviointi a = arviointi(rivi, alku, loppu);
        if (o.nakyy && !ArvioiEhto(*o.nakyy, a))
            return;
        if (o.laji == OsaLaji::Rivi && o.sarakkeita > 1) {
            sijoitaSarakkeeseen(vo, a);
            return;
        }
        suljeSarakerivi();
        Ilmentyma il = rakenna(vo, a);
        if (o.alaosaan) {
            if (m_y + il.korkeus > m_ala + Vara)
                uusiSivu();
            lisaa(il, m_reunat.left(), qMax(m_y, m_ala - il.korkeus));
            m_y = m_ala;
            m_sisaltoa = true;
            return;
        }
        // A band is kept together on the next page, unless it grew with its text to more than half
        // a page: such a band (a member's whole record) goes on where the page has room.
        const bool pitka = il.korkeus > o.korkeus + Vara && il.korkeus > (m_ala - m_reunat.top()) / 2;
        if (m_y + il.korkeus + m_pidaMukana > m_ala + Vara && m_sisaltoa && !pitka)
            uusiSivu();
        while (m_y + il.korkeus > m_ala + Vara)
            jaa(il);
        lisaa(il, m_reunat.left(), m_y);
        m_y += il.korkeus + (o.laji == OsaLaji::Rivi ? o.pystyvali : 0);
        m_sisaltoa = true;
    }

    // A band taller than the room left on the page: what fits stays here, the rest moves up to
    // continue on the next page.
    void jaa(Ilmentyma &il)
    {
        const double tila = m_ala - m_y;
        bool kaikkiMahtuvat = true;
        for (const Tulostekohde &t : il.kohteet)
            kaikkiMahtuvat = kaikkiMahtuvat && t.alue.bottom() <= tila + Vara;
        if (kaikkiMahtuvat) { // only empty space overflows
            il.korkeus = tila;
            return;
        }
        Ilmentyma tassa, loput;
        double leikkaus = il.korkeus;
        for (size_t i = 0; i < il.kohteet.size(); ++i) {
            const bool mahtuu = il.kohteet[i].alue.bottom() <= tila + Vara;
            Ilmentyma &kohde = mahtuu ? tassa : loput;
            kohde.kohteet.push_back(il.kohteet[i]);
            kohde.kokonaissivut.push_back(il.kokonaissivut[i]);
            if (!mahtuu)
                leikkaus = qMin(leikkaus, il.kohteet[i].alue.top());
        }
        if (tassa.kohteet.empty() && !m_sisaltoa) {
            // Not even one item fits on an empty page: it is printed cut rather than never.
            tassa.kohteet.push_back(loput.kohteet.front());
            tassa.kokonaissivut.push_back(loput.kokonaissivut.front());
            loput.kohteet.erase(loput.kohteet.begin());
            loput.kokonaissivut.erase(loput.kokonaissivut.begin());
            leikkaus = il.korkeus;
            for (const Tulostekohde &t : loput.kohteet)
                leikkaus = qMin(leikkaus, t.alue.top());
        }
        lisaa(tassa, m_reunat.left(), m_y);
        for (Tulostekohde &t : loput.kohteet)
            t.alue.translate(0, -leikkaus);
        loput.korkeus = qMax(0.0, il.korkeus - leikkaus);
        il = std::move(loput);
        uusiSivu();
    }

    void sijoitaSarakkeeseen(const ValmisOsa &vo, const Arviointi &a)
    {
        const Osa &o = *vo.o;
        const double runko = m_d.koko.width() - m_reunat.left() - m_reunat.right();
        const double leveys = o.sarakeleveys > 0 ? o.sarakeleveys : (runko - (o.sarakkeita - 1) * o.vaakavali) / o.sarakkeita;
        Ilmentyma il = rakenna(vo, a);
        if (o.alas) {
            sijoitaAlas(o, il, leveys);
            return;
        }
        if (m_sarake == 0) {
            if (m_y + il.korkeus > m_ala + Vara && m_sisaltoa)
                uusiSivu();
            m_riviYla = m_y;
            m_riviKorkeus = 0;
        }
        lisaa(il, m_reunat.left() + m_sarake * (leveys + o.vaakavali), m_riviYla);
        m_riviKorkeus = qMax(m_riviKorkeus, il.korkeus);
        m_sisaltoa = true;
        if (++m_sarake == o.sarakkeita)
            suljeSarakerivi();
    }

    // Down the first column, then the next, as many rows to a column as the page has room for;
    // every row takes the height of the block's first.
    void sijoitaAlas(const Osa &o, Ilmentyma &il, double leveys)
    {
        auto aloita = [&] {
            m_lohkoYla = m_y;
            m_askel = qMax(il.korkeus + o.pystyvali, 1.0);
            m_sarakkeessa = qMax(1, int((m_ala - m_y + o.pystyvali + Vara) / m_askel));
        };
        if (m_lohkossa == 0) {
            if (m_y + il.korkeus > m_ala + Vara && m_sisaltoa)
                uusiSivu();
            aloita();
        } else if (m_lohkossa == m_sarakkeessa * o.sarakkeita) {
            uusiSivu();
            aloita();
        }
        const int sarake = m_lohkossa / m_sarakkeessa, rivi = m_lohkossa % m_sarakkeessa;
        lisaa(il, m_reunat.left() + sarake * (leveys + o.vaakavali), m_lohkoYla + rivi * m_askel);
        ++m_lohkossa;
        m_sisaltoa = true;
    }

    void avaaRyhma(int taso, int rivi)
    {
        const Ryhma &r = m_m.ryhmat[size_t(taso - 1)];
        const int raportinRivi = m_alkuRivi + rivi;
        if (r.omaSivutus) {
            // An inner group that opens with its outer one shares the page the outer one began.
            if (raportinRivi > 0 && m_jaksonRivi != raportinRivi)
                uusiSivu(true);
            m_jaksonRivi = raportinRivi;
        } else if (r.uusiSivu && raportinRivi > 0 && m_sisaltoa) {
            uusiSivu();
        }
        const ValmisOsa &vo = m_ryhmat[size_t(taso - 1)].first;
        if (!vo.o)
            return;
        // A heading is never left alone at the foot of a page: it goes over with the inner headings
        // and the group's first row.
        auto korkeus = [&](const ValmisOsa &osa, size_t t) {
            return rakenna(osa, arviointi(rivi, rivi, t < m_loppu.size() ? m_loppu[t][size_t(rivi)] : m_r->riveja)).korkeus;
        };
        double tarve = 0;
        for (size_t t = size_t(taso - 1); t < m_ryhmat.size(); ++t) {
            if (m_ryhmat[t].first.o)
                tarve += korkeus(m_ryhmat[t].first, t);
            // A group of one row takes its footer along too.
            if (m_ryhmat[t].second.o && m_loppu[t][size_t(rivi)] == rivi + 1)
                tarve += korkeus(m_ryhmat[t].second, t);
        }
        if (m_rivinOsa.o && m_rivinOsa.o->sarakkeita == 1)
            tarve += korkeus(m_rivinOsa, m_ryhmat.size() - 1);
        if (m_sisaltoa && m_y + tarve > m_ala + Vara)
            uusiSivu();
        sijoita(vo, rivi, rivi, m_loppu[size_t(taso - 1)][size_t(rivi)]);
    }

    void suljeRyhma(int taso, int alku, int loppu)
    {
        const ValmisOsa &vo = m_ryhmat[size_t(taso - 1)].second;
        const int edellinen = m_rivi;
        m_rivi = loppu - 1; // a page started by the footer shows the group's last row
        if (vo.o)
            sijoita(vo, loppu - 1, alku, loppu);
        m_rivi = edellinen;
    }

    const Maaritys &m_m;
    Rivilahde &m_lahde;
    const Rivisto *m_r = nullptr;   // the rows at hand
    const Rivisto m_tyhja;          // a report without rows
    int m_alkuRivi = 0;             // how many rows of the report came before those at hand
    const Asetteluvalinnat &m_v;
    Sivuvirta &m_ulos;
    const std::optional<int> m_kokonaismaara;
    Asiakirja m_d;                  // the pages not yet handed on
    int m_annetut = 0;              // pages handed on
    int m_jaksonAlku = 0;           // the first page that PageNumber counts from
    int m_jaksonRivi = -1;          // the row whose group began the pages counted together
    bool m_kokonaissivujaKaytetaan = false, m_omatSivut = false;
    QMarginsF m_reunat;
    Arviointi m_arv;
    QHash<QString, int> m_fontit;
    std::vector<Mittari> m_mitat;
    ValmisOsa m_raporttiotsikko, m_sivuotsikko, m_rivinOsa, m_sivualatunniste, m_raporttialatunniste;
    std::vector<std::pair<ValmisOsa, ValmisOsa>> m_ryhmat; // header, footer by level
    double m_pidaMukana = 0; // room the band being placed keeps for the footers after it
    std::vector<int> m_muutos;
    std::vector<std::vector<int>> m_loppu;
    std::vector<std::pair<int, int>> m_kokonaissivut; // page among those not handed on, item
    double m_y = 0, m_ala = 0;
    bool m_sisaltoa = false;
    int m_rivi = -1, m_sivunEnsimmainen = -1;
    int m_sarake = 0;
    double m_riviYla = 0, m_riviKorkeus = 0;
    int m_lohkossa = 0, m_sarakkeessa = 1; // rows placed down the columns of this page, rows a column holds
    double m_lohkoYla = 0, m_askel = 0;
};

} // namespace

namespace {
class Laskuri : public Sivuvirta {
public:
    void alku(const Asiakirja &) override {}
    void sivu(Sivu &&) override {}
    void loppu(int) override {}
};
} // namespace

void Aseta(const Maaritys &m, const Rivisto &rivit, const Asetteluvalinnat &v, Sivuvirta &ulos)
{
    KokoRivisto lahde(rivit);
    Aseta(m, lahde, v, ulos);
}

void Aseta(const Maaritys &m, Rivilahde &rivit, const Asetteluvalinnat &v, Sivuvirta &ulos)
{
    std::optional<int> sivuja;
    {
        Laskuri laskuri;
        Asettelija ensin(m, rivit, v, laskuri, std::nullopt);
        if (ensin.tarvitseeLaskennan())
            sivuja = ensin.aseta(0, 2);
    }
    Asettelija(m, rivit, v, ulos, sivuja).aseta(sivuja ? 1 : 0, sivuja ? 2 : 1);
}

Asiakirja Aseta(const Maaritys &m, const Rivisto &rivit, const Asetteluvalinnat &v)
{
    Keraaja k;
    Aseta(m, rivit, v, k);
    return std::move(k.d);
}
