// Attributes of the demonstration club and their values on members.
#include "esittely/EsittelyPiirteet.h"
#include "esittely/EsittelyNimet.h"

namespace esittely {

namespace {

enum PiirreNro {
    Hallitus, Junioriryhma, Kausimaksu, Talkoovuorot, Lisenssi,
    Toimihenkilo, Kunniajasen, Valmentaja, Ensiapu, Seuralehti
};

QVariant pvm(const QDate &d) { return QVariant(d); }
QVariant raha(qint64 euroa, int senttia = 0) { return Currency::fromRaw(euroa * 10000 + senttia * 100).toVariant(); }

Piirre piirre(const char *nimi, const char *kuvaus, bool p, bool l, bool m, bool r)
{
    Piirre x;
    x.nimi = QString::fromUtf8(nimi);
    x.kuvaus = QString::fromUtf8(kuvaus);
    x.pvm = p;
    x.luku = l;
    x.muistio = m;
    x.raha = r;
    return x;
}

std::vector<Piirre> maaritelmat()
{
    std::vector<Piirre> v;
    v.push_back(piirre("Hallituksen jäsen", "Valittu hallitukseen syyskokouksessa; muistio kertoo tehtävän.", true, false, true, false));
    v.push_back(piirre("Junioriryhmä", "Harjoitusryhmä; luku on ryhmän ikäluokka.", false, true, true, false));
    v.push_back(piirre("Kausimaksu 2026", "Syyskauden 2026 harjoitusmaksu; arvo on henkilön maksu.", false, false, false, true));
    v.push_back(piirre("Talkoovuorot", "Kauden talkoovuorot; luku on tehtyjen vuorojen määrä.", true, true, false, false));
    v.push_back(piirre("Lisenssi", "Lajiliiton kilpailulisenssi; päivämäärä on voimassaolon loppu.", true, false, true, true));
    v.push_back(piirre("Seuran toimihenkilö", "Muistio kertoo tehtävän.", false, false, true, false));
    v.push_back(piirre("Kunniajäsen", "Nimitetty kunniajäseneksi; päivämäärä on nimityspäivä.", true, false, false, false));
    v.push_back(piirre("Valmentaja", "Muistio: joukkue. Luku: valmentajakoulutuksen taso 1–3.", true, true, true, false));
    v.push_back(piirre("Ensiapukoulutus", "EA1-todistus; päivämäärä on voimassaolon loppu.", true, false, false, false));
    v.push_back(piirre("Seuralehti", "Tilaa seuran lehden paperisena.", false, false, false, false));
    v[Hallitus].oletusPvm = pvm(QDate(Kausi - 1, 11, 20));
    v[Kausimaksu].oletusRaha = raha(180);
    v[Talkoovuorot].oletusLuku = 0;
    v[Lisenssi].oletusPvm = pvm(QDate(Kausi, 12, 31));
    v[Lisenssi].oletusRaha = raha(45);
    v[Valmentaja].oletusLuku = 1;
    return v;
}

void kiinnita(Seura &s, int jasen, int nro, QVariant p = {}, QVariant l = {}, QVariant m = {}, QVariant r = {})
{
    s.kiinnitykset.push_back({jasen, nro, std::move(p), std::move(l), std::move(m), std::move(r)});
}

QString ryhma(const Jasen &j)
{
    const int vuosi = j.syntyma.isValid() ? j.syntyma.year() : Kausi - 10;
    if (Kausi - vuosi < 7)
        return QStringLiteral("Perheliikunta");
    if (Kausi - vuosi >= 17)
        return QStringLiteral("Nuoret N%1").arg(vuosi - vuosi % 2);
    return QStringLiteral("%1%2").arg(j.mies ? QStringLiteral("Pojat P") : QStringLiteral("Tytöt T")).arg(vuosi - vuosi % 2);
}

void junioriArvot(Seura &s, int i, Arpa &a)
{
    const Jasen &j = s.jasenet[std::size_t(i)];
    if (a.tod(0.9))
        kiinnita(s, i, Junioriryhma, {}, j.syntyma.isValid() ? QVariant(j.syntyma.year()) : QVariant(), ryhma(j));
    if (a.tod(0.8)) {
        const bool kilpa = j.luokka == Ikaluokka::Nuori && a.tod(0.5);
        kiinnita(s, i, Kausimaksu, {}, {}, {}, kilpa ? raha(240) : a.tod(0.15) ? raha(150) : raha(180));
    }
    if (a.tod(j.luokka == Ikaluokka::Nuori ? 0.25 : 0.1))
        kiinnita(s, i, Lisenssi, pvm(QDate(Kausi, 12, 31)), {}, QStringLiteral("LIS-%1").arg(a.vali(100000, 999999)),
                 j.luokka == Ikaluokka::Nuori ? raha(45) : raha(25));
}

void aikuisenArvot(Seura &s, int i, Arpa &a)
{
    const Jasen &j = s.jasenet[std::size_t(i)];
    if (a.tod(0.1))
        kiinnita(s, i, Kausimaksu, {}, {}, {}, a.tod(0.5) ? raha(120) : raha(97, 50));
    if (a.tod(j.perheenLaskutettava ? 0.3 : 0.05)) {
        const QDate viimeisin = a.paiva(QDate(Kausi, 4, 1), QDate(Kausi, 10, 15));
        kiinnita(s, i, Talkoovuorot, pvm(viimeisin), a.vali(1, 8));
    }
    if (a.tod(0.05))
        kiinnita(s, i, Lisenssi, pvm(QDate(Kausi, 12, 31)), {}, QStringLiteral("LIS-%1").arg(a.vali(100000, 999999)), raha(45));
    if (a.tod(0.01)) {
        kiinnita(s, i, Toimihenkilo, {}, {}, a.mika(Toimihenkilotehtavat()));
        if (a.tod(0.3)) // some carry two tasks, and so the same attribute twice
            kiinnita(s, i, Toimihenkilo, {}, {}, a.mika(Toimihenkilotehtavat()));
    }
    if (j.syntyma.isValid() && j.syntyma.year() < 1960 && a.tod(0.02))
        kiinnita(s, i, Kunniajasen, pvm(a.paiva(QDate(2000, 1, 1), QDate(Kausi - 1, 11, 20))));
    if (a.tod(0.02)) {
        const int taso = a.vali(1, 3);
        const QVariant koulutus = a.tod(0.8) ? pvm(a.paiva(QDate(2010, 1, 1), QDate(Kausi, 6, 30))) : QVariant();
        kiinnita(s, i, Valmentaja, koulutus, taso, a.mika(Joukkueet()));
        if (a.tod(0.2))
            kiinnita(s, i, Valmentaja, koulutus, taso, a.mika(Joukkueet()));
    }
    if (a.tod(0.03))
        kiinnita(s, i, Ensiapu, pvm(a.paiva(QDate(Kausi, 1, 1), QDate(Kausi + 3, 1, 1))));
    if (a.tod(0.08))
        kiinnita(s, i, Seuralehti);
}

// An attribute nobody happened to get goes to one adult, so that even a small club shows them all.
void taydenna(Seura &s, const std::vector<int> &aikuiset, Arpa &a)
{
    std::vector<int> kaytossa(s.piirteet.size());
    for (const Kiinnitys &k : s.kiinnitykset)
        ++kaytossa[std::size_t(k.piirre)];
    for (int nro = 0; nro < int(s.piirteet.size()); ++nro) {
        if (kaytossa[std::size_t(nro)] > 0 || aikuiset.empty())
            continue;
        const Piirre &p = s.piirteet[std::size_t(nro)];
        const int i = aikuiset[std::size_t(a.vali(0, int(aikuiset.size()) - 1))];
        const QVariant paiva = p.pvm ? (p.oletusPvm.isValid() ? p.oletusPvm : pvm(a.paiva(QDate(2015, 1, 1), QDate(Kausi, 6, 30))))
                                     : QVariant();
        const QVariant luku = p.luku ? (p.oletusLuku.isValid() ? p.oletusLuku : QVariant(1)) : QVariant();
        const QVariant muistio = p.muistio ? QVariant(a.mika(nro == Valmentaja ? Joukkueet() : Toimihenkilotehtavat())) : QVariant();
        const QVariant arvo = p.raha ? (p.oletusRaha.isValid() ? p.oletusRaha : raha(50)) : QVariant();
        kiinnita(s, i, nro, paiva, luku, muistio, arvo);
    }
}

} // namespace

void LuoPiirteet(Seura &s, Arpa &a)
{
    s.piirteet = maaritelmat();
    std::vector<int> aikuiset;
    for (int i = 0; i < int(s.jasenet.size()); ++i) {
        if (s.jasenet[std::size_t(i)].luokka == Ikaluokka::Aikuinen) {
            aikuiset.push_back(i);
            aikuisenArvot(s, i, a);
        } else {
            junioriArvot(s, i, a);
        }
    }
    // The board: one of each task among adults who have been members for a while.
    const QStringList &tehtavat = Hallitustehtavat();
    for (qsizetype t = 0; t < tehtavat.size() && !aikuiset.empty(); ++t) {
        const int i = aikuiset[std::size_t(a.vali(0, int(aikuiset.size()) - 1))];
        kiinnita(s, i, Hallitus, pvm(QDate(a.tod(0.5) ? Kausi - 1 : Kausi - 2, 11, 20)), {}, tehtavat[t]);
    }
    taydenna(s, aikuiset, a);
}

} // namespace esittely
