#include "reports/Maaritys.h"

#include "platform/files.h"
#include "reports/RaporttiVirhe.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

// Outside any namespace, as the resource initialiser requires; it keeps the built-in
// definitions in a program that links nothing else of the static library's resources.
static void alustaResurssit() { Q_INIT_RESOURCE(resources); }

namespace {

class Lukija {
public:
    Lukija(const QByteArray &xml, const QString &tiedosto) : m_x(xml), m_tiedosto(tiedosto) {}

    Maaritys lue()
    {
        Maaritys m;
        m.tiedosto = m_tiedosto;
        m.reunat = QMarginsF(mm(15), mm(12), mm(15), mm(12));
        m.fontti.nimi = QStringLiteral("Times New Roman");
        m.fontti.koko = 10;
        if (!seuraavaElementti() || m_x.name() != QLatin1String("raportti"))
            virhe(QStringLiteral("tiedosto ei ala elementillä <raportti>"));
        attribuutit({QStringLiteral("nimi")});
        m.nimi = m_x.attributes().value(QLatin1String("nimi")).toString();
        while (seuraavaLapsi()) {
            const QString e = m_x.name().toString();
            if (e == QLatin1String("sivu"))
                sivu(m);
            else if (e == QLatin1String("fontti")) {
                attribuutit({QStringLiteral("nimi"), QStringLiteral("koko"), QStringLiteral("lihava"),
                             QStringLiteral("kursiivi"), QStringLiteral("alleviivattu")});
                m.fontti = fontti(m.fontti);
                loppuun();
            } else if (e == QLatin1String("lahde"))
                lahde(m);
            else if (e == QLatin1String("kaava"))
                kaava(m);
            else if (e == QLatin1String("jarjestys")) {
                attribuutit({});
                const int rivi = int(m_x.lineNumber());
                const QString t = m_x.readElementText().trimmed();
                tarkistaKaava([&] { JasennaLajittelu(t); }, rivi);
                m.jarjestys << t;
            } else if (e == QLatin1String("valinta")) {
                attribuutit({});
                const int rivi = int(m_x.lineNumber());
                m.valinta = m_x.readElementText().trimmed();
                tarkistaKaava([&] { JasennaKaava(m.valinta, m.tiedosto); }, rivi);
            } else if (e == QLatin1String("ryhma"))
                ryhma(m);
            else if (e == QLatin1String("raporttiotsikko"))
                kertaosa(m.raporttiotsikko, OsaLaji::Raporttiotsikko);
            else if (e == QLatin1String("sivuotsikko"))
                kertaosa(m.sivuotsikko, OsaLaji::Sivuotsikko);
            else if (e == QLatin1String("rivi"))
                kertaosa(m.rivi, OsaLaji::Rivi);
            else if (e == QLatin1String("sivualatunniste"))
                kertaosa(m.sivualatunniste, OsaLaji::Sivualatunniste);
            else if (e == QLatin1String("raporttialatunniste"))
                kertaosa(m.raporttialatunniste, OsaLaji::Raporttialatunniste);
            else
                tuntematonElementti();
        }
        if (m_x.hasError())
            virhe(QStringLiteral("XML-virhe: ") + m_x.errorString());
        if (m.paataulu.isEmpty())
            virhe(QStringLiteral("tietolähde <lahde taulu=\"…\"> puuttuu"), 1);
        return m;
    }

private:
    [[noreturn]] void virhe(const QString &mika, qint64 rivi = -1) const
    {
        if (rivi < 0)
            rivi = m_x.lineNumber();
        throw RaporttiVirhe(QStringLiteral("Raportin määrittely %1, rivi %2: %3.").arg(m_tiedosto).arg(rivi).arg(mika));
    }

    bool seuraavaElementti()
    {
        while (!m_x.atEnd()) {
            m_x.readNext();
            if (m_x.isStartElement())
                return true;
        }
        if (m_x.hasError())
            virhe(QStringLiteral("XML-virhe: ") + m_x.errorString());
        return false;
    }

    // The next child of the current element; false at its end.
    bool seuraavaLapsi()
    {
        const bool ok = m_x.readNextStartElement();
        if (m_x.hasError())
            virhe(QStringLiteral("XML-virhe: ") + m_x.errorString());
        return ok;
    }

    void loppuun()
    {
        while (seuraavaLapsi())
            tuntematonElementti();
    }

    [[noreturn]] void tuntematonElementti() { virhe(QStringLiteral("tuntematon elementti <%1>").arg(m_x.name())); }

    void attribuutit(const QStringList &sallitut)
    {
        for (const auto &a : m_x.attributes())
            if (!sallitut.contains(a.name().toString()))
                virhe(QStringLiteral("elementillä <%1> ei ole ominaisuutta \"%2\"").arg(m_x.name(), a.name()));
    }

    QString arvo(const char *nimi) const { return m_x.attributes().value(QLatin1String(nimi)).toString(); }
    bool on(const char *nimi) const { return m_x.attributes().hasAttribute(QLatin1String(nimi)); }

    static double mm(double x) { return x * yksikko::TwipsiaMillilla; }

    double luku(const char *nimi, double oletus = 0)
    {
        if (!on(nimi))
            return oletus;
        bool ok = false;
        const double v = arvo(nimi).trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
        if (!ok)
            virhe(QStringLiteral("ominaisuuden %1 arvo \"%2\" ei ole luku").arg(QLatin1String(nimi), arvo(nimi)));
        return v;
    }

    double pituus(const char *nimi, double oletus = 0) { return on(nimi) ? mm(luku(nimi)) : oletus; }

    std::optional<bool> totuus(const char *nimi)
    {
        if (!on(nimi))
            return std::nullopt;
        const QString v = arvo(nimi).trimmed().toLower();
        if (v == QStringLiteral("kyllä") || v == QLatin1String("kylla") || v == QLatin1String("true") || v == QLatin1String("1"))
            return true;
        if (v == QLatin1String("ei") || v == QLatin1String("false") || v == QLatin1String("0"))
            return false;
        virhe(QStringLiteral("ominaisuuden %1 arvo \"%2\" ei ole kyllä tai ei").arg(QLatin1String(nimi), arvo(nimi)));
    }

    QColor vari(const char *nimi)
    {
        if (!on(nimi))
            return {};
        const QColor c = QColor::fromString(arvo(nimi).trimmed());
        if (!c.isValid())
            virhe(QStringLiteral("väri \"%1\" on tuntematon").arg(arvo(nimi)));
        return c;
    }

    template<typename F>
    void tarkistaKaava(F &&f, qint64 rivi)
    {
        try {
            f();
        } catch (const RaporttiVirhe &e) {
            virhe(e.viesti(), rivi);
        }
    }

    std::shared_ptr<Solmu> lauseke(const char *nimi, const QString &missa)
    {
        if (!on(nimi))
            return {};
        std::shared_ptr<Solmu> s;
        tarkistaKaava([&] { s = JasennaKaava(arvo(nimi), missa); }, m_x.lineNumber());
        return s;
    }

    FonttiMaaritys fontti(FonttiMaaritys f = {})
    {
        if (on("fontti"))
            f.nimi = arvo("fontti");
        if (on("nimi") && m_x.name() == QLatin1String("fontti"))
            f.nimi = arvo("nimi");
        if (on("koko")) {
            f.koko = luku("koko");
            if (f.koko <= 0 || f.koko > 200)
                virhe(QStringLiteral("fonttikoko %1 ei kelpaa").arg(arvo("koko")));
        }
        if (auto b = totuus("lihava"))
            f.lihava = b;
        if (auto b = totuus("kursiivi"))
            f.kursiivi = b;
        if (auto b = totuus("alleviivattu"))
            f.alleviivattu = b;
        return f;
    }

    void sivu(Maaritys &m)
    {
        attribuutit({QStringLiteral("koko"), QStringLiteral("leveys"), QStringLiteral("korkeus"), QStringLiteral("suunta"),
                     QStringLiteral("vasen"), QStringLiteral("oikea"), QStringLiteral("yla"), QStringLiteral("ala"),
                     QStringLiteral("lukittu")});
        if (on("koko")) {
            static const QHash<QString, QPageSize::PageSizeId> koot = {
                {QStringLiteral("a4"), QPageSize::A4}, {QStringLiteral("a5"), QPageSize::A5},
                {QStringLiteral("a3"), QPageSize::A3}, {QStringLiteral("letter"), QPageSize::Letter}};
            const auto it = koot.constFind(arvo("koko").trimmed().toLower());
            if (it == koot.constEnd())
                virhe(QStringLiteral("paperikoko \"%1\" on tuntematon (A4, A5, A3, Letter)").arg(arvo("koko")));
            m.sivukoko = QPageSize(*it);
        }
        if (on("leveys") || on("korkeus")) {
            const double l = luku("leveys"), k = luku("korkeus");
            if (l <= 0 || k <= 0)
                virhe(QStringLiteral("sivulle tarvitaan sekä leveys että korkeus"));
            m.sivukoko = QPageSize(QSizeF(l, k), QPageSize::Millimeter, QString(), QPageSize::ExactMatch);
        }
        if (on("suunta")) {
            const QString s = arvo("suunta").trimmed().toLower();
            if (s == QLatin1String("pysty"))
                m.suunta = QPageLayout::Portrait;
            else if (s == QLatin1String("vaaka"))
                m.suunta = QPageLayout::Landscape;
            else
                virhe(QStringLiteral("suunta \"%1\" on tuntematon (pysty tai vaaka)").arg(arvo("suunta")));
        }
        m.reunat = QMarginsF(pituus("vasen", m.reunat.left()), pituus("yla", m.reunat.top()),
                             pituus("oikea", m.reunat.right()), pituus("ala", m.reunat.bottom()));
        if (auto b = totuus("lukittu"))
            m.reunatLukittu = *b;
        loppuun();
    }

    void lahde(Maaritys &m)
    {
        attribuutit({QStringLiteral("taulu"), QStringLiteral("nimi")});
        m.paataulu = arvo("taulu").trimmed();
        m.paatauluNimi = on("nimi") ? arvo("nimi").trimmed() : m.paataulu;
        if (m.paataulu.isEmpty())
            virhe(QStringLiteral("tietolähteen taulu puuttuu"));
        while (seuraavaLapsi()) {
            if (m_x.name() != QLatin1String("liitos"))
                tuntematonElementti();
            attribuutit({QStringLiteral("taulu"), QStringLiteral("nimi"), QStringLiteral("ehto"), QStringLiteral("tapa")});
            Liitos l;
            l.taulu = arvo("taulu").trimmed();
            l.nimi = on("nimi") ? arvo("nimi").trimmed() : l.taulu;
            if (l.taulu.isEmpty())
                virhe(QStringLiteral("liitoksen taulu puuttuu"));
            l.ehto = lauseke("ehto", QStringLiteral("Liitos %1").arg(l.nimi));
            const QString tapa = arvo("tapa").trimmed().toLower();
            if (tapa == QLatin1String("sisa"))
                l.sisa = true;
            else if (!tapa.isEmpty() && tapa != QLatin1String("vasen"))
                virhe(QStringLiteral("liitostapa \"%1\" on tuntematon (vasen tai sisa)").arg(tapa));
            m.liitokset.push_back(l);
            loppuun();
        }
    }

    void kaava(Maaritys &m)
    {
        attribuutit({QStringLiteral("nimi"), QStringLiteral("lauseke")});
        const QString nimi = arvo("nimi").trimmed();
        if (nimi.isEmpty())
            virhe(QStringLiteral("kaavan nimi puuttuu"));
        auto s = lauseke("lauseke", QStringLiteral("Kaava %1").arg(nimi));
        const QString teksti = m_x.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement);
        if (m_x.hasError())
            virhe(QStringLiteral("XML-virhe: ") + m_x.errorString());
        if (!s) {
            s = std::make_shared<Solmu>();
            s->laji = Solmu::Laji::Teksti;
            s->teksti = teksti;
        }
        m.kaavat.insert(nimi.toLower(), s);
    }

    void ryhma(Maaritys &m)
    {
        attribuutit({QStringLiteral("lauseke"), QStringLiteral("uusisivu"), QStringLiteral("jarjestys"), QStringLiteral("sivutus")});
        Ryhma r;
        const int taso = int(m.ryhmat.size()) + 1;
        r.lausekeTeksti = arvo("lauseke");
        r.lauseke = lauseke("lauseke", QStringLiteral("Ryhmä %1").arg(taso));
        if (!r.lauseke)
            virhe(QStringLiteral("ryhmältä puuttuu lauseke"));
        r.uusiSivu = totuus("uusisivu").value_or(false);
        const QString sivutus = arvo("sivutus").trimmed().toLower();
        if (sivutus == QLatin1String("oma"))
            r.omaSivutus = true;
        else if (!sivutus.isEmpty() && sivutus != QLatin1String("raportti"))
            virhe(QStringLiteral("ryhmän sivutus \"%1\" on tuntematon (oma tai raportti)").arg(sivutus));
        const QString j = arvo("jarjestys").trimmed().toLower();
        if (j == QLatin1String("laskeva"))
            r.laskeva = true;
        else if (j == QLatin1String("rivit"))
            r.lajittele = false;
        else if (!j.isEmpty() && j != QLatin1String("nouseva"))
            virhe(QStringLiteral("ryhmän järjestys \"%1\" on tuntematon (nouseva, laskeva tai rivit)").arg(j));
        while (seuraavaLapsi()) {
            if (m_x.name() == QLatin1String("otsikko"))
                kertaosa(r.otsikko, OsaLaji::Ryhmaotsikko, taso);
            else if (m_x.name() == QLatin1String("alatunniste"))
                kertaosa(r.alatunniste, OsaLaji::Ryhmaalatunniste, taso);
            else
                tuntematonElementti();
        }
        m.ryhmat.push_back(std::move(r));
    }

    void kertaosa(std::optional<Osa> &paikka, OsaLaji laji, int taso = 0)
    {
        if (paikka)
            virhe(QStringLiteral("osa <%1> on jo määritelty").arg(m_x.name()));
        QStringList sallitut = {QStringLiteral("korkeus"), QStringLiteral("nakyy"), QStringLiteral("alaosaan"),
                                QStringLiteral("fontti"), QStringLiteral("koko"), QStringLiteral("lihava"),
                                QStringLiteral("kursiivi"), QStringLiteral("alleviivattu")};
        if (laji == OsaLaji::Rivi)
            sallitut << QStringLiteral("sarakkeita") << QStringLiteral("leveys") << QStringLiteral("vaakavali")
                     << QStringLiteral("pystyvali") << QStringLiteral("taytto");
        attribuutit(sallitut);
        Osa o;
        o.laji = laji;
        o.taso = taso;
        o.korkeus = pituus("korkeus");
        if (o.korkeus < 0)
            virhe(QStringLiteral("osan korkeus ei voi olla negatiivinen"));
        o.alaosaan = totuus("alaosaan").value_or(false);
        o.nakyy = lauseke("nakyy", QStringLiteral("Osa <%1>").arg(m_x.name()));
        o.fontti = fontti();
        o.sarakkeita = int(luku("sarakkeita", 1));
        if (o.sarakkeita < 1 || o.sarakkeita > 50)
            virhe(QStringLiteral("sarakkeita pitää olla 1–50"));
        o.sarakeleveys = pituus("leveys");
        o.vaakavali = pituus("vaakavali");
        o.pystyvali = pituus("pystyvali");
        const QString taytto = arvo("taytto").trimmed().toLower();
        if (taytto == QLatin1String("alas"))
            o.alas = true;
        else if (!taytto.isEmpty() && taytto != QLatin1String("vierekkain"))
            virhe(QStringLiteral("täyttöjärjestys \"%1\" on tuntematon (vierekkain tai alas)").arg(taytto));
        while (seuraavaLapsi())
            o.kohteet.push_back(kohde());
        paikka = std::move(o);
    }

    Kohde kohde()
    {
        static const QHash<QString, KohdeLaji> lajit = {
            {QStringLiteral("teksti"), KohdeLaji::Teksti},   {QStringLiteral("viiva"), KohdeLaji::Viiva},
            {QStringLiteral("laatikko"), KohdeLaji::Laatikko}, {QStringLiteral("kuva"), KohdeLaji::Kuva},
            {QStringLiteral("viivakoodi"), KohdeLaji::Viivakoodi}, {QStringLiteral("qr"), KohdeLaji::QrKoodi}};
        const auto it = lajit.constFind(m_x.name().toString());
        if (it == lajit.constEnd())
            tuntematonElementti();
        Kohde k;
        k.laji = *it;
        const qint64 rivi = m_x.lineNumber();
        k.tunnus = on("nimi") ? QStringLiteral("kohde \"%1\"").arg(arvo("nimi"))
                              : QStringLiteral("<%1> rivillä %2").arg(m_x.name()).arg(rivi);
        const QString &missa = k.tunnus;
        QStringList sallitut = {QStringLiteral("nimi"), QStringLiteral("nakyy"), QStringLiteral("vari")};
        if (k.laji == KohdeLaji::Viiva) {
            sallitut << QStringLiteral("x1") << QStringLiteral("y1") << QStringLiteral("x2") << QStringLiteral("y2")
                     << QStringLiteral("paksuus");
            attribuutit(sallitut);
            k.alue = QRectF(QPointF(pituus("x1"), pituus("y1")), QPointF(pituus("x2"), pituus("y2")));
        } else {
            sallitut << QStringLiteral("x") << QStringLiteral("y") << QStringLiteral("leveys") << QStringLiteral("korkeus");
            if (k.laji == KohdeLaji::Laatikko)
                sallitut << QStringLiteral("paksuus") << QStringLiteral("tausta");
            if (k.laji == KohdeLaji::Kuva)
                sallitut << QStringLiteral("tiedosto") << QStringLiteral("valinnainen");
            if (k.laji == KohdeLaji::Teksti || k.laji == KohdeLaji::Viivakoodi || k.laji == KohdeLaji::QrKoodi)
                sallitut << QStringLiteral("lauseke");
            if (k.laji == KohdeLaji::Teksti)
                sallitut << QStringLiteral("tasaus") << QStringLiteral("pysty") << QStringLiteral("fontti")
                         << QStringLiteral("koko") << QStringLiteral("lihava") << QStringLiteral("kursiivi")
                         << QStringLiteral("alleviivattu") << QStringLiteral("muoto") << QStringLiteral("kasvaa")
                         << QStringLiteral("rivita") << QStringLiteral("osiofontti") << QStringLiteral("tausta")
                         << QStringLiteral("kierto");
            attribuutit(sallitut);
            k.alue = QRectF(pituus("x"), pituus("y"), pituus("leveys"), pituus("korkeus"));
            if (k.alue.width() <= 0 || k.alue.height() <= 0)
                virhe(QStringLiteral("%1: leveys ja korkeus puuttuvat").arg(k.tunnus));
        }
        if (on("paksuus"))
            k.paksuus = luku("paksuus") * yksikko::TwipsiaPisteella;
        if (on("vari"))
            k.vari = vari("vari");
        k.tausta = vari("tausta");
        k.nakyy = lauseke("nakyy", missa);
        k.lauseke = lauseke("lauseke", missa);
        k.teksti = arvo("tiedosto");
        if (k.laji == KohdeLaji::Teksti) {
            k.fontti = fontti();
            tasaus(k);
            if (on("muoto")) {
                const auto mu = MuotoNimesta(arvo("muoto"));
                if (!mu)
                    virhe(QStringLiteral("muoto \"%1\" on tuntematon (raha, euro, pvm, viite, iban, kokonaisluku)").arg(arvo("muoto")));
                k.muoto = *mu;
            }
            k.kasvaa = totuus("kasvaa").value_or(false);
            k.rivita = k.kasvaa || totuus("rivita").value_or(false);
            k.osiofontti = totuus("osiofontti").value_or(true);
            if (on("kierto")) {
                k.kierto = arvo("kierto").trimmed().toInt();
                if (k.kierto != 0 && k.kierto != 90 && k.kierto != 270)
                    virhe(QStringLiteral("%1: kierto \"%2\" ei käy (0, 90 tai 270)").arg(k.tunnus, arvo("kierto")));
                if (k.kierto != 0 && k.rivita)
                    virhe(QStringLiteral("%1: käännetty teksti ei rivity").arg(k.tunnus));
            }
            const QString kiintea = m_x.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement);
            if (m_x.hasError())
                virhe(QStringLiteral("XML-virhe: ") + m_x.errorString());
            if (!k.lauseke)
                k.teksti = kiintea;
            return k;
        }
        if ((k.laji == KohdeLaji::Viivakoodi || k.laji == KohdeLaji::QrKoodi) && !k.lauseke)
            virhe(QStringLiteral("%1: lauseke puuttuu").arg(k.tunnus));
        if (k.laji == KohdeLaji::Kuva && k.teksti.isEmpty())
            virhe(QStringLiteral("%1: kuvan tiedosto puuttuu").arg(k.tunnus));
        if (k.laji == KohdeLaji::Kuva)
            k.valinnainen = totuus("valinnainen").value_or(false);
        loppuun();
        return k;
    }

    void tasaus(Kohde &k)
    {
        Qt::Alignment vaaka = Qt::AlignLeft, pysty = Qt::AlignTop;
        const QString t = arvo("tasaus").trimmed().toLower();
        if (t == QLatin1String("oikea"))
            vaaka = Qt::AlignRight;
        else if (t == QLatin1String("keski"))
            vaaka = Qt::AlignHCenter;
        else if (!t.isEmpty() && t != QLatin1String("vasen"))
            virhe(QStringLiteral("tasaus \"%1\" on tuntematon (vasen, keski, oikea)").arg(t));
        const QString p = arvo("pysty").trimmed().toLower();
        if (p == QLatin1String("keski"))
            pysty = Qt::AlignVCenter;
        else if (p == QLatin1String("ala"))
            pysty = Qt::AlignBottom;
        else if (!p.isEmpty() && p != QLatin1String("yla"))
            virhe(QStringLiteral("pystytasaus \"%1\" on tuntematon (yla, keski, ala)").arg(p));
        k.tasaus = vaaka | pysty;
    }

    QXmlStreamReader m_x;
    QString m_tiedosto;
};

} // namespace

QSizeF Maaritys::sivunKoko() const
{
    const QSizeF p = sivukoko.size(QPageSize::Millimeter) * yksikko::TwipsiaMillilla;
    return suunta == QPageLayout::Landscape ? p.transposed() : p;
}

std::vector<Osa *> Maaritys::osat()
{
    std::vector<Osa *> v;
    auto lisaa = [&v](std::optional<Osa> &o) {
        if (o)
            v.push_back(&*o);
    };
    lisaa(raporttiotsikko);
    lisaa(sivuotsikko);
    for (auto &r : ryhmat)
        lisaa(r.otsikko);
    lisaa(rivi);
    for (auto it = ryhmat.rbegin(); it != ryhmat.rend(); ++it)
        lisaa(it->alatunniste);
    lisaa(sivualatunniste);
    lisaa(raporttialatunniste);
    return v;
}

Maaritys LueMaaritysTekstista(const QByteArray &xml, const QString &tiedosto)
{
    return Lukija(xml, tiedosto).lue();
}

Maaritys LueMaaritys(const QString &polku)
{
    QFile f(polku);
    const QString nimi = files::fileNamePart(polku);
    if (!f.open(QIODevice::ReadOnly))
        throw RaporttiVirhe(QStringLiteral("Raportin määrittelyä %1 ei voi lukea: %2.").arg(polku, f.errorString()));
    return LueMaaritysTekstista(f.readAll(), nimi);
}

QString EtsiRaportti(const QString &nimiTaiPolku)
{
    const QString annettu = nimiTaiPolku.trimmed();
    if (annettu.isEmpty())
        throw RaporttiVirhe(QStringLiteral("Raporttitiedostoa ei ole annettu."));
    if (QFileInfo(annettu).isFile())
        return annettu;
    const QString polku = QString(annettu).replace(QLatin1Char('\\'), QLatin1Char('/'));
    // A file the user chose (an invoice layout of the settings) is that file or none: never
    // silently the built-in one of the same name. The program's own reports come by name or by
    // a path into the program's folder.
    if (polku.contains(QLatin1Char('/'))
        && QDir::cleanPath(QFileInfo(polku).absolutePath()) != QDir::cleanPath(QFileInfo(files::programFolder()).absoluteFilePath()))
        throw RaporttiVirhe(QStringLiteral("Raporttitiedostoa %1 ei löydy. Tarkista tiedoston nimi ja kansio.").arg(annettu));
    QString nimi = files::fileNamePart(polku);
    if (!nimi.contains(QLatin1Char('.')))
        nimi += QStringLiteral(".rpt");
    const QString omassa = files::joinPath(files::programFolder(), nimi);
    if (QFileInfo(omassa).isFile())
        return omassa;
    alustaResurssit();
    const QString sisainen = QStringLiteral(":/raportit/") + nimi;
    if (QFileInfo::exists(sisainen))
        return sisainen;
    throw RaporttiVirhe(QStringLiteral("Raporttia %1 ei löydy ohjelman kansiosta eikä ohjelman omista raporteista.").arg(nimi));
}
