// The invoice and reminder layouts on the demonstration club: what each family prints on which
// page, the giro slip at the foot of an invoice's last page, the input a treasurer may well have
// (a faulty account, a huge amount, no reference …), and the barcode and QR code read back from a
// rendered PDF agreeing with the invoice.
#include "../invoicing/laskuseura.h"
#include "core/Asetukset.h"
#include "invoicing/EpcQr.h"
#include "invoicing/Iban.h"
#include "invoicing/Jasenmaksuajo.h"
#include "invoicing/Maksuviite.h"
#include "invoicing/Pankkiviivakoodi.h"
#include "raporttiseura.h"
#include "reports/Raporttiajo.h"
#include "reports/Tulostus.h"
#include "seurat.h"
#include "testenv.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double SlipinYlareuna = 297.0 - 101.6; // mm from the top of the paper

double mm(double twipsia) { return twipsia / yksikko::TwipsiaMillilla; }

QString nbsp(QString s) { return s.replace(u' ', QChar(0x00A0)); }

QString raha(const Currency &c) { return nbsp(QLocale(QLocale::Finnish, QLocale::Finland).toString(double(c.raw()) / Currency::Scale, 'f', 2)); }

const Tulostekohde *kohde(const Asiakirja &a, int sivu, KohdeLaji laji)
{
    for (const Tulostekohde &k : a.sivut[size_t(sivu)].kohteet)
        if (k.laji == laji)
            return &k;
    return nullptr;
}

const Tulostekohde *teksti(const Asiakirja &a, int sivu, const QString &alku)
{
    for (const Tulostekohde *k : a.tekstikohteet(sivu))
        if (k->teksti.startsWith(alku))
            return k;
    return nullptr;
}

QString ajaOhjelma(const QString &ohjelma, const QStringList &argumentit)
{
    QProcess p;
    p.start(ohjelma, argumentit);
    if (!p.waitForFinished(60000) || p.exitCode() != 0)
        return QStringLiteral("(%1 epäonnistui: %2)").arg(ohjelma, QString::fromUtf8(p.readAllStandardError()));
    return QString::fromUtf8(p.readAllStandardOutput());
}

// One invoice as the slip should show it.
struct Lasku {
    qint64 id = 0, jrID = 0, numero = 0;
    QString nimi, viite, teksti;
    Currency hinta;
    QDate erapaiva;
};

} // namespace

class TestLaskupohjat : public QObject {
    Q_OBJECT
    std::unique_ptr<TestEnv> env;
    QString kanta;
    std::unique_ptr<db::Database> d;

    Asiakirja laadi(const QString &raportti, const QString &valinta, const QStringList &kaavat = {})
    {
        Raportti().ResetReportFormulas(kanta);
        AsetaMuistutusKaavat();
        for (int i = 0; i < kaavat.size(); ++i)
            Raportti().Formulas[13 + i] = kaavat[i];
        Raportti().ReportFileName = raportti;
        Raportti().SelectionFormula = valinta;
        return Raportti().Laadi();
    }

    Lasku avoinLasku(const QString &ehto = u"1 = 1"_s)
    {
        db::Statement s(*d, u"SELECT jmID, jmjrID, jmLaskunumero, jmViitenumero, jmHinta, jmErapaiva, jmTeksti, "
                            "trim(coalesce(jrEtunimi, '') || ' ' || coalesce(jrSukunimi, '')) FROM jm JOIN jr ON jrID = jmjrID WHERE "_s
                            + ehto + u" ORDER BY jmID LIMIT 1"_s);
        if (!s.next())
            return {};
        return {s.value(0).toLongLong(), s.value(1).toLongLong(), s.value(2).toLongLong(), s.value(7).toString(),
                s.value(3).toString(), s.value(6).toString(), Currency::fromRaw(s.value(4).toLongLong()),
                QDate::fromString(s.value(5).toString(), Qt::ISODate)};
    }

    // The 54 digits and the QR payload the slip's own fields give.
    static QString viivakoodi(const QString &tili, const Lasku &l, const Currency &summa)
    {
        return Pankkiviivakoodi(PankkitiliTekstista(tili).tili.iban, summa, l.viite, l.erapaiva).numerot;
    }
    QString qr(const QString &tili, const Lasku &l, const Currency &summa) const
    {
        const Pankkitili t = PankkitiliTekstista(tili).tili;
        EpcQrTiedot q;
        q.bic = t.bic;
        q.saaja = MainModule::RegName;
        q.iban = t.iban;
        q.summa = summa;
        q.viite = l.viite;
        q.viesti = u"Lasku %1, %2"_s.arg(l.numero).arg(l.teksti);
        q.erapaiva = l.erapaiva;
        return QString::fromUtf8(EpcQrSisalto(q).sisalto);
    }

    // An invoice of `rivit` rows for member `jrID`; returns its id.
    qint64 lisaaLasku(qint64 jrID, const QStringList &rivit, const Currency &hinta, const QString &viite)
    {
        const qint64 numero = 900000 + d->scalar(u"SELECT count(*) FROM jm"_s).toLongLong();
        d->execute(u"INSERT INTO jm (jmjrID, jmmeID, jmLaskunumero, jmLaskupaiva, jmErapaiva, jmViitenumero, jmHinta, jmTeksti, "
                   "jmOtsake, jmMaksettu, jmEiLoppusummaa) VALUES (?, 0, ?, '2027-03-01', '2027-03-31', ?, ?, 'Kausimaksut', "
                   "'Harjoitusmaksut', 0, 0)"_s,
                   {jrID, numero, viite.isEmpty() ? u""_s : viite, hinta.raw()});
        const qint64 id = d->lastInsertId();
        for (const QString &r : rivit)
            d->execute(u"INSERT INTO jmRivi (jmRjmID, jmRjrID, jmRHinta, jmRTeksti) VALUES (?, ?, ?, ?)"_s,
                       {id, jrID, Currency::fromUnits(10).raw(), r});
        return id;
    }

private slots:
    void initTestCase()
    {
        env = std::make_unique<TestEnv>();
        kanta = seurat::Kopio(150, env->path(u"demo1.mdb"_s));
        d = db::Database::open(kanta);
        LueAsetukset(*d);
        QVERIFY(LisaaJasenmaksut(Ajo(*d), laskuseura::lomake(), false).lisatty > 0);
    }

    // Each family on an invoice of the open batch or of the history: the letterhead, the payer in
    // the envelope's window, the details, the rows and the total on one page, and a barcode and QR
    // code that carry the slip's account, amount, reference and due date.
    void perheet_data()
    {
        QTest::addColumn<QString>("raportti");
        QTest::addColumn<QString>("otsikko");
        QTest::addColumn<bool>("tilisiirto");
        QTest::newRow("tilisiirto") << u"jrotile.rpt"_s << u"LASKU"_s << true;
        QTest::newRow("tilisiirto kaksikielinen") << u"jrotile2.rpt"_s << u"LASKU / FAKTURA"_s << true;
        QTest::newRow("yleislasku") << u"jromak.rpt"_s << u"LASKU"_s << false;
        QTest::newRow("yleislasku kaksikielinen") << u"jromak2.rpt"_s << u"LASKU / FAKTURA"_s << false;
        QTest::newRow("historian tilisiirto") << u"jrphtile.rpt"_s << u"LASKU"_s << true;
        QTest::newRow("historian tilisiirto kaksikielinen") << u"jrphti2e.rpt"_s << u"LASKU / FAKTURA"_s << true;
        QTest::newRow("historian yleislasku") << u"jrphmak.rpt"_s << u"LASKU"_s << false;
        QTest::newRow("historian yleislasku kaksikielinen") << u"jrphmak2.rpt"_s << u"LASKU / FAKTURA"_s << false;
    }

    void perheet()
    {
        QFETCH(QString, raportti);
        QFETCH(QString, otsikko);
        QFETCH(bool, tilisiirto);
        const bool historia = raportti.startsWith(u"jrph"_s);
        Lasku l;
        QString valinta, rivi;
        if (historia) {
            // A history invoice with rows, its own account chosen and a reference.
            db::Statement s(*d, u"SELECT jmhID, jmhjmLaskunumero, jmhjmViitenumero, jmhjmHinta, jmhjmErapaiva, jmhjmTeksti, "
                                "trim(coalesce(jrEtunimi, '') || ' ' || coalesce(jrSukunimi, '')), "
                                "(SELECT jmRTeksti FROM jmRivi WHERE jmRjmID = jmhjmID ORDER BY jmRID LIMIT 1) "
                                "FROM jmhist JOIN jr ON jrID = jmhjmjrID WHERE jmhjmViitenumero <> '' AND jmhjmEiLoppusummaa = 0 "
                                "AND EXISTS (SELECT 1 FROM jmRivi WHERE jmRjmID = jmhjmID) ORDER BY jmhID LIMIT 1"_s);
            QVERIFY(s.next());
            l = {s.value(0).toLongLong(), 0, s.value(1).toLongLong(), s.value(6).toString(), s.value(2).toString(),
                 s.value(5).toString(), Currency::fromRaw(s.value(3).toLongLong()),
                 QDate::fromString(s.value(4).toString(), Qt::ISODate)};
            rivi = s.value(7).toString();
            valinta = u"{jmhist.jmhID}="_s + QString::number(l.id);
        } else {
            l = avoinLasku();
            rivi = u"Vuosimaksu"_s;
            valinta = u"{jr.jrID}="_s + QString::number(l.jrID);
        }
        QVERIFY(l.id > 0);
        const QString tili = historia ? d->scalar(u"SELECT IIF(jmhjmKaytaPankkitili1, jmhjmPankkitili1, ?) FROM jmhist WHERE jmhID = ?"_s,
                                                  {MainModule::RegPankkiyhteys1, l.id}).toString()
                                      : MainModule::RegPankkiyhteys1;
        const Asiakirja a = laadi(raportti, valinta);
        QCOMPARE(a.sivut.size(), size_t(1));
        const QStringList t = a.tekstit(0);
        for (const QString &odotettu : {otsikko, MainModule::RegName, QString::number(l.numero), l.erapaiva.toString(u"d.M.yyyy"_s),
                                        KansallinenViiteTulosteeseen(l.viite), rivi, raha(l.hinta) + u" €"_s, u"Y-tunnus 2918476-3"_s})
            QVERIFY2(t.contains(odotettu), qPrintable(odotettu + u" puuttuu: "_s + t.join(u" | "_s)));
        QVERIFY(teksti(a, 0, u"Sivu"_s)->teksti.endsWith(u" 1/1"_s));
        QVERIFY(t.join(u'\n').contains(IbanTulosteeseen(PankkitiliTekstista(tili).tili.iban)));
        QVERIFY(!t.contains(u"KOPIO"_s));
        for (const QString &k : t)
            QVERIFY2(!k.endsWith(QChar(0x2026)), qPrintable(k)); // no text is cut short
        // The payer's address where a window envelope shows it.
        const Tulostekohde *maksaja = teksti(a, 0, l.nimi);
        QVERIFY(maksaja);
        QVERIFY2(mm(maksaja->alue.top()) >= 45 && mm(maksaja->alue.top()) <= 50 && mm(maksaja->alue.left()) < 25,
                 qPrintable(u"%1 mm, %2 mm"_s.arg(mm(maksaja->alue.top())).arg(mm(maksaja->alue.left()))));
        const Tulostekohde *pystyotsikko = teksti(a, 0, u"TILISIIRTO. GIRERING"_s);
        QCOMPARE(pystyotsikko != nullptr, tilisiirto);
        if (tilisiirto)
            QCOMPARE(pystyotsikko->kierto, 90);

        const Tulostekohde *viiva = kohde(a, 0, KohdeLaji::Viivakoodi), *qrKoodi = kohde(a, 0, KohdeLaji::QrKoodi);
        QVERIFY(viiva && qrKoodi);
        QCOMPARE(viiva->teksti, viivakoodi(tili, l, l.hinta));
        QCOMPARE(qrKoodi->teksti, qr(tili, l, l.hinta));
        // Bars start 20 mm from the paper's edge, below everything else but the terms' column.
        QVERIFY(mm(viiva->alue.left()) > 16 && mm(viiva->alue.left()) < 18);

        if (historia) {
            const Asiakirja kopio = laadi(raportti, valinta, {u"Kopio= 'KOPIO'"_s});
            QVERIFY(kopio.tekstit(0).contains(u"KOPIO"_s));
        }
    }

    // The slip's lines where the banks' form has them: rows of 8, 7, 14, 2, 4 and 13 twelfths of
    // an inch down from 101.6 mm above the paper's lower edge, thin lines 0.13 mm, thick 0.5 mm.
    void lomakkeenMitat()
    {
        const Lasku l = avoinLasku();
        const Asiakirja a = laadi(u"jrotile.rpt"_s, u"{jm.jmID}="_s + QString::number(l.id));
        QSet<int> vaakaviivat; // tenths of a millimetre from the slip's top
        QSet<int> paksuudet;
        for (const Tulostekohde &k : a.sivut[0].kohteet) {
            if (k.laji != KohdeLaji::Viiva || mm(k.alue.top()) < SlipinYlareuna - 0.5)
                continue;
            paksuudet << qRound(mm(k.paksuus) * 100);
            if (qFuzzyCompare(k.alue.top(), k.alue.bottom()))
                vaakaviivat << qRound((mm(k.alue.top()) - SlipinYlareuna) * 10);
        }
        const double kahdestoistaosa = 25.4 / 12;
        for (int rajat : {0, 8, 15, 29, 31, 35})
            QVERIFY2(vaakaviivat.contains(qRound(rajat * kahdestoistaosa * 10)),
                     qPrintable(u"rivin raja %1/12 puuttuu"_s.arg(rajat)));
        QCOMPARE(paksuudet, (QSet<int>{13, 50}));
        // The slip's data in at least 9 points of a sans font, its labels in 7.
        int tarkistettu = 0;
        for (const Tulostekohde *k : a.tekstikohteet(0)) {
            if (mm(k->alue.top()) < SlipinYlareuna)
                continue;
            const QFont &f = a.fontit[size_t(k->fontti)];
            const double pisteet = f.pixelSize() / yksikko::TwipsiaPisteella;
            if (k->teksti == KansallinenViiteTulosteeseen(l.viite) || k->teksti == raha(l.hinta) || k->teksti.startsWith(u"Olli"_s)) {
                QVERIFY2(pisteet >= 9 && !QFontInfo(f).family().contains(u"Serif"_s), qPrintable(QFontInfo(f).family()));
                ++tarkistettu;
            }
            if (k->teksti.startsWith(u"Viitenro"_s) || k->teksti == u"Euro"_s) {
                QCOMPARE(pisteet, 7.0);
                ++tarkistettu;
            }
        }
        QCOMPARE(tarkistettu, 4);
    }

    // Forty rows do not fit one page: the rows go on to a second page under their headings, the
    // address only on the first, and the slip with its codes at the foot of the second alone. The
    // member's other invoice before it has a page of its own, and each counts its own pages.
    void pitkaLasku()
    {
        QStringList rivit;
        for (int i = 1; i <= 40; ++i)
            rivit << u"Harjoitusvuoro %1"_s.arg(i);
        const Lasku jasen = avoinLasku();
        const qint64 id = lisaaLasku(jasen.jrID, rivit, Currency::fromUnits(400), u"1234561"_s);
        Asiakirja a = laadi(u"jrotile.rpt"_s, u"{jr.jrID}="_s + QString::number(jasen.jrID));
        QCOMPARE(a.sivut.size(), size_t(3));
        const QStringList ensimmainen = a.tekstit(0);
        QVERIFY(ensimmainen.contains(u"Sivu 1/1"_s) && ensimmainen.contains(QString::number(jasen.numero)));
        QCOMPARE(ensimmainen.count(u"Selite"_s), 1);
        a.sivut.erase(a.sivut.begin());
        QCOMPARE(a.tekstit(0).count(u"Selite"_s), 1);
        const QStringList s1 = a.tekstit(0), s2 = a.tekstit(1);
        QVERIFY(s1.contains(u"Harjoitusvuoro 1"_s) && !s1.contains(u"Harjoitusvuoro 40"_s));
        QVERIFY(s2.contains(u"Harjoitusvuoro 40"_s) && !s2.contains(u"Harjoitusvuoro 1"_s));
        QVERIFY(s1.contains(u"Sivu 1/2"_s) && s2.contains(u"Sivu 2/2"_s));
        QVERIFY(s1.contains(u"Selite"_s) && s2.contains(u"Selite"_s));
        // The address in the envelope's window on the first page only; the slip has it on the last.
        const Tulostekohde *osoite1 = teksti(a, 0, jasen.nimi), *osoite2 = teksti(a, 1, jasen.nimi);
        QVERIFY(osoite1 && mm(osoite1->alue.top()) < 50);
        QVERIFY(osoite2 && mm(osoite2->alue.top()) > SlipinYlareuna);
        QVERIFY(!teksti(a, 0, u"TILISIIRTO. GIRERING"_s) && teksti(a, 1, u"TILISIIRTO. GIRERING"_s));
        QVERIFY(!kohde(a, 0, KohdeLaji::Viivakoodi) && kohde(a, 1, KohdeLaji::Viivakoodi));
        QVERIFY(!kohde(a, 0, KohdeLaji::QrKoodi) && kohde(a, 1, KohdeLaji::QrKoodi));
        QVERIFY(s2.contains(nbsp(u"400,00"_s) + u" €"_s) && s2.contains(nbsp(u"400,00"_s)));
        // The slip keeps its place at the foot of the page whatever the rows above it.
        const Tulostekohde *otsikko = teksti(a, 1, u"TILISIIRTO. GIRERING"_s);
        QVERIFY(qAbs(mm(otsikko->alue.top()) - SlipinYlareuna - 1) < 0.1);
        d->execute(u"DELETE FROM jmRivi WHERE jmRjmID = ?"_s, {id});
        d->execute(u"DELETE FROM jm WHERE jmID = ?"_s, {id});
    }

    // Input a treasurer may well have prints sensibly, and a barcode or QR code is printed only
    // when it carries exactly what the slip shows.
    void hankalatTiedot_data()
    {
        QTest::addColumn<QString>("tili");
        QTest::addColumn<qint64>("euroja");
        QTest::addColumn<QString>("viite");
        QTest::addColumn<QString>("seura");
        QTest::addColumn<bool>("osoite");
        QTest::addColumn<QString>("rivi");
        QTest::addColumn<bool>("viivakoodi");
        QTest::addColumn<bool>("qrKoodi");
        QTest::addColumn<QString>("nakyy"); // printed on the page
        const QString tili = u"FI21 1234 5600 0007 85 Nordea"_s, seura = u"Kylän Kipinä ry"_s;
        QTest::newRow("tarkiste väärin") << u"FI22 1234 5600 0007 85"_s << 25LL << u"1234561"_s << seura << true << u"Maksu"_s
                                         << false << false << u"FI22 1234 5600 0007 85"_s;
        QTest::newRow("ulkomainen tili") << u"DE89 3704 0044 0532 0130 00"_s << 25LL << u"1234561"_s << seura << true << u"Maksu"_s
                                         << false << true << u"DE89 3704 0044 0532 0130 00"_s;
        QTest::newRow("ei tiliä") << QString() << 25LL << u"1234561"_s << seura << true << u"Maksu"_s << false << false
                                  << u"12 34561"_s;
        QTest::newRow("yli miljoona") << tili << 1000000LL << u"1234561"_s << seura << true << u"Maksu"_s << false << true
                                      << nbsp(u"1 000 000,00"_s);
        const QString pitkaNimi = u"Pohjois-Savon Koira- & Kissaharrastajat 'Karvaturrit' Yhdistys ry 2026"_s;
        QTest::newRow("seuran nimi 70 merkkiä") << tili << 25LL << u"1234561"_s << pitkaNimi << true << u"Maksu"_s << true << true
                                                << u"Pohjois-Savon"_s;
        QTest::newRow("maksajalla ei osoitetta") << tili << 25LL << u"1234561"_s << seura << false << u"Maksu"_s << true << true
                                                 << u"FI21 1234 5600 0007 85"_s;
        const QString pitkaRivi = (u"Harjoitusmaksu "_s.repeated(17)).left(250) + u"LOPPU"_s;
        QTest::newRow("rivin teksti 255 merkkiä") << tili << 25LL << u"1234561"_s << seura << true << pitkaRivi << true << true
                                                  << u"LOPPU"_s;
        QTest::newRow("ei viitettä") << tili << 25LL << QString() << seura << true << u"Maksu"_s << false << true
                                     << u"Viesti: Lasku "_s;
    }

    void hankalatTiedot()
    {
        QFETCH(QString, tili);
        QFETCH(qint64, euroja);
        QFETCH(QString, viite);
        QFETCH(QString, seura);
        QFETCH(bool, osoite);
        QFETCH(QString, rivi);
        QFETCH(bool, viivakoodi);
        QFETCH(bool, qrKoodi);
        QFETCH(QString, nakyy);
        QVERIFY(seura.size() <= 70);
        static int jasenia = 0;
        const qint64 jrID = LisaaJasen(*d, {u"Osoitteeton"_s, u"Olli"_s, osoite ? u"Kuja 1"_s : QString(), osoite ? u"00100"_s : QString(),
                                            osoite ? u"Helsinki"_s : QString(), {}, u"T%1"_s.arg(++jasenia)});
        const qint64 id = lisaaLasku(jrID, {rivi}, Currency::fromUnits(euroja), viite);
        const QString vanhaNimi = MainModule::RegName, vanhaTili = MainModule::RegPankkiyhteys1, vanhaTili2 = MainModule::RegPankkiyhteys2;
        MainModule::RegName = seura;
        MainModule::RegPankkiyhteys1 = tili;
        MainModule::RegPankkiyhteys2.clear();
        const Asiakirja a = laadi(u"jrotile.rpt"_s, u"{jm.jmID}="_s + QString::number(id));
        MainModule::RegName = vanhaNimi;
        MainModule::RegPankkiyhteys1 = vanhaTili;
        MainModule::RegPankkiyhteys2 = vanhaTili2;

        QCOMPARE(a.sivut.size(), size_t(1));
        const QString kaikki = a.tekstit(0).join(u'\n');
        QVERIFY2(kaikki.contains(nakyy), qPrintable(kaikki));
        QVERIFY(teksti(a, 0, u"Olli Osoitteeton"_s));
        QVERIFY(kaikki.contains(raha(Currency::fromUnits(euroja))));
        const Lasku l = avoinLasku(u"jmID = "_s + QString::number(id));
        const Tulostekohde *v = kohde(a, 0, KohdeLaji::Viivakoodi), *q = kohde(a, 0, KohdeLaji::QrKoodi);
        QCOMPARE(v != nullptr, viivakoodi);
        QCOMPARE(q != nullptr, qrKoodi);
        if (v)
            QCOMPARE(v->teksti, Pankkiviivakoodi(PankkitiliTekstista(tili).tili.iban, l.hinta, l.viite, l.erapaiva).numerot);
        if (q) {
            MainModule::RegName = seura;
            QCOMPARE(q->teksti, qr(tili, l, l.hinta));
            MainModule::RegName = vanhaNimi;
            const QStringList rivit = q->teksti.split(u'\n');
            QCOMPARE(rivit.value(7), u"EUR%1.00"_s.arg(euroja));
            QCOMPARE(rivit.value(9).isEmpty(), viite.isEmpty()); // the reference, or the message two lines on
        }
        d->execute(u"DELETE FROM jmRivi WHERE jmRjmID = ?"_s, {id});
        d->execute(u"DELETE FROM jm WHERE jmID = ?"_s, {id});
    }

    // An invoice made without a total prints its rows but no total, and leaves the amount to the
    // payer on the slip and in both codes.
    void eiLoppusummaa()
    {
        const Lasku jasen = avoinLasku();
        const qint64 id = lisaaLasku(jasen.jrID, {u"Talkoomaksu"_s}, Currency::fromUnits(70), u"1234561"_s);
        d->execute(u"UPDATE jm SET jmEiLoppusummaa = 1 WHERE jmID = ?"_s, {id});
        const Lasku l = avoinLasku(u"jmID = "_s + QString::number(id));
        for (const QString &raportti : {u"jrotile.rpt"_s, u"jromak.rpt"_s}) {
            const Asiakirja a = laadi(raportti, u"{jm.jmID}="_s + QString::number(id));
            const QStringList t = a.tekstit(0);
            QVERIFY(t.contains(u"Talkoomaksu"_s) && t.contains(nbsp(u"10,00"_s)));
            QVERIFY2(!t.contains(u"Yhteensä"_s) && !t.join(u'\n').contains(u"70,00"_s), qPrintable(raportti));
            QCOMPARE(kohde(a, 0, KohdeLaji::Viivakoodi)->teksti, viivakoodi(MainModule::RegPankkiyhteys1, l, Currency()));
            QCOMPARE(kohde(a, 0, KohdeLaji::Viivakoodi)->teksti.mid(17, 8), u"00000000"_s);
            QCOMPARE(kohde(a, 0, KohdeLaji::QrKoodi)->teksti.split(u'\n').value(7), QString());
        }
        d->execute(u"DELETE FROM jmRivi WHERE jmRjmID = ?"_s, {id});
        d->execute(u"DELETE FROM jm WHERE jmID = ?"_s, {id});
    }

    // The club's logo.png in the program's folder prints in the letterhead; without it the page
    // prints all the same.
    void logo()
    {
        const QString valinta = u"{jm.jmID}="_s + QString::number(avoinLasku().id);
        QVERIFY(!kohde(laadi(u"jrotile.rpt"_s, valinta), 0, KohdeLaji::Kuva));
        QDir().mkpath(env->programFolder());
        QImage kuva(40, 40, QImage::Format_RGB32);
        kuva.fill(Qt::darkGreen);
        const QString polku = env->programFolder() + u"/logo.png"_s;
        QVERIFY(kuva.save(polku));
        const Asiakirja a = laadi(u"jromak.rpt"_s, valinta);
        QFile::remove(polku);
        const Tulostekohde *k = kohde(a, 0, KohdeLaji::Kuva);
        QVERIFY(k);
        QVERIFY(mm(k->alue.bottom()) < 45); // above the envelope's window
    }

    // "Vain valittu tilinumero": the slip shows the invoice's own account alone and the codes carry
    // it; otherwise both of the club's accounts, the codes the first.
    void vainValittuTili()
    {
        const Lasku jasen = avoinLasku();
        const qint64 id = lisaaLasku(jasen.jrID, {u"Maksu"_s}, Currency::fromUnits(20), u"1234561"_s);
        const Lasku l = avoinLasku(u"jmID = "_s + QString::number(id));
        const QString valinta = u"{jm.jmID}="_s + QString::number(id);
        const QString seuran = IbanTulosteeseen(PankkitiliTekstista(MainModule::RegPankkiyhteys1).tili.iban),
                      oma = IbanTulosteeseen(PankkitiliTekstista(MainModule::RegPankkiyhteys2).tili.iban);
        QVERIFY(!seuran.isEmpty() && !oma.isEmpty());

        Asiakirja a = laadi(u"jrotile.rpt"_s, valinta);
        QVERIFY(a.tekstit(0).contains(seuran) && a.tekstit(0).contains(oma));
        QCOMPARE(kohde(a, 0, KohdeLaji::Viivakoodi)->teksti, viivakoodi(MainModule::RegPankkiyhteys1, l, l.hinta));

        d->execute(u"UPDATE jm SET jmKaytaPankkitili1 = 1, jmPankkitili1 = ? WHERE jmID = ?"_s, {MainModule::RegPankkiyhteys2, id});
        a = laadi(u"jrotile.rpt"_s, valinta);
        QVERIFY(!a.tekstit(0).contains(seuran) && a.tekstit(0).contains(oma));
        QCOMPARE(kohde(a, 0, KohdeLaji::Viivakoodi)->teksti, viivakoodi(MainModule::RegPankkiyhteys2, l, l.hinta));
        QCOMPARE(kohde(a, 0, KohdeLaji::QrKoodi)->teksti, qr(MainModule::RegPankkiyhteys2, l, l.hinta));
        d->execute(u"DELETE FROM jmRivi WHERE jmRjmID = ?"_s, {id});
        d->execute(u"DELETE FROM jm WHERE jmID = ?"_s, {id});
    }

    // The printed PDF page at 300 dpi: a scanner reads the barcode and the QR code, and both
    // carry the invoice's account, amount, reference and due date; the slip's labels stand where
    // the form has them.
    void pdfSivulta()
    {
        for (const char *ohjelma : {"pdftoppm", "zbarimg", "pdftotext"})
            if (QStandardPaths::findExecutable(QString::fromLatin1(ohjelma)).isEmpty())
                QSKIP("poppler-utils or zbar-tools is not installed: the printed page cannot be read back");
        const Lasku l = avoinLasku();
        const QString pdf = env->path(u"lasku.pdf"_s);
        Raportti().ResetReportFormulas(kanta);
        AsetaSeuraKaavat();
        Raportti().ReportFileName = u"jrotile.rpt"_s;
        Raportti().SelectionFormula = u"{jm.jmID}="_s + QString::number(l.id);
        Raportti().Destination = Raporttiajo::PdfTiedosto;
        Raportti().PrintFileName = pdf;
        Raportti().setAction(1);
        ajaOhjelma(u"pdftoppm"_s, {u"-r"_s, u"300"_s, u"-png"_s, u"-f"_s, u"1"_s, u"-l"_s, u"1"_s, u"-singlefile"_s, pdf, env->path(u"sivu"_s)});
        const QString png = env->path(u"sivu.png"_s);
        QVERIFY(QFile::exists(png));

        const QString viiva = ajaOhjelma(u"zbarimg"_s, {u"-q"_s, u"--raw"_s, u"-Sdisable"_s, u"-Scode128.enable"_s, png}).trimmed();
        const QString iban = PankkitiliTekstista(MainModule::RegPankkiyhteys1).tili.iban;
        QCOMPARE(viiva.size(), 54);
        QCOMPARE(viiva.left(1), u"4"_s);
        QCOMPARE(viiva.mid(1, 16), iban.mid(2));
        QCOMPARE(viiva.mid(17, 8), u"%1"_s.arg(l.hinta.raw() / 100, 8, 10, QLatin1Char('0')));
        QCOMPARE(viiva.mid(25, 23), u"%1"_s.arg(l.viite, 23, QLatin1Char('0')));
        QCOMPARE(viiva.mid(48), l.erapaiva.toString(u"yyMMdd"_s));

        const QString koodi = ajaOhjelma(u"zbarimg"_s, {u"-q"_s, u"--raw"_s, u"-Sdisable"_s, u"-Sqrcode.enable"_s, u"-Sbinary"_s, png});
        const QStringList q = koodi.trimmed().split(u'\n');
        QCOMPARE(q.value(0), u"BCD"_s);
        QCOMPARE(q.value(6), iban);
        QCOMPARE(q.value(7), u"EUR%1"_s.arg(l.hinta.toDouble(), 0, 'f', 2));
        QCOMPARE(q.value(9), RfViiteKansallisesta(l.viite));
        QCOMPARE(q.value(11), u"ReqdExctnDt/"_s + l.erapaiva.toString(Qt::ISODate));

        // Word boxes in points from the page's top: each label within a millimetre of its row.
        const QString html = ajaOhjelma(u"pdftotext"_s, {u"-bbox"_s, pdf, u"-"_s});
        auto ylareuna = [&](const QString &sana) {
            const QRegularExpression re(u"yMin=\"([0-9.]+)\"[^>]*>"_s + QRegularExpression::escape(sana) + u"<"_s);
            const auto m = re.match(html);
            return m.hasMatch() ? m.captured(1).toDouble() * 25.4 / 72 : -1.0;
        };
        const double t = 25.4 / 12;
        const struct {
            QString sana;
            double rivi; // the label's row, in twelfths from the slip's top
        } nimiot[] = {{u"Saajan"_s, 0}, {u"Mottagare"_s, 8}, {u"Maksajan"_s, 15}, {u"Tililtä"_s, 31}, {u"Viitenro"_s, 25}, {u"Förfallodag"_s, 31}};
        for (const auto &n : nimiot) {
            const double y = ylareuna(n.sana) - SlipinYlareuna - n.rivi * t;
            QVERIFY2(y >= 0 && y <= 4.5, qPrintable(u"%1: %2 mm rivin yläreunasta"_s.arg(n.sana).arg(y)));
        }
    }

    // A reminder asks for the open amount, the fee and the interest on a slip of its own: the
    // heading from the settings or MAKSUMUISTUTUS, the texts around it, and codes for the total.
    void muistutus()
    {
        db::Statement s(*d, u"SELECT jmhID, jmhjmViitenumero, jmhjmMuistutusYhteensa, jmhjmMuistutusPaiva, jmhjmAvoinSumma "
                            "FROM jmhist WHERE jmhjmMuistutusNumero > 0 AND jmhjmViitenumero <> '' ORDER BY jmhID LIMIT 1"_s);
        QVERIFY(s.next());
        const qint64 id = s.value(0).toLongLong();
        Lasku l;
        l.viite = s.value(1).toString();
        const Currency yhteensa = Currency::fromRaw(s.value(2).toLongLong());
        l.erapaiva = QDate::fromString(s.value(3).toString(), Qt::ISODate).addDays(14);
        d->execute(u"UPDATE jmhist SET jmhjmMuistutusOtsake = NULL WHERE jmhID = ?"_s, {id});
        MainModule::MuistutusAlku = u"Kirjanpitomme mukaan alla oleva lasku on vielä maksamatta."_s;
        MainModule::MuistutusLoppu = u"Jos olet jo maksanut, tämä muistutus on aiheeton."_s;
        const QString valinta = u"{jmhist.jmhID}="_s + QString::number(id);
        Asiakirja a = laadi(u"jrphkarh.rpt"_s, valinta);
        QCOMPARE(a.sivut.size(), size_t(1));
        QStringList t = a.tekstit(0);
        for (const QString &odotettu : {u"MAKSUMUISTUTUS"_s, MainModule::MuistutusAlku, MainModule::MuistutusLoppu, raha(yhteensa) + u" €"_s,
                                        raha(yhteensa), l.erapaiva.toString(u"d.M.yyyy"_s), u"TILISIIRTO. GIRERING"_s})
            QVERIFY2(t.contains(odotettu), qPrintable(odotettu + u" puuttuu: "_s + t.join(u" | "_s)));
        const Tulostekohde *v = kohde(a, 0, KohdeLaji::Viivakoodi);
        QVERIFY(v);
        QCOMPARE(v->teksti, Pankkiviivakoodi(PankkitiliTekstista(MainModule::RegPankkiyhteys1).tili.iban, yhteensa, l.viite, l.erapaiva).numerot);

        a = laadi(u"jrphkarh.rpt"_s, valinta, {u"MuistutusOtsake= 'TOINEN MUISTUTUS'"_s});
        t = a.tekstit(0);
        QVERIFY(t.contains(u"TOINEN MUISTUTUS"_s) && !t.contains(u"MAKSUMUISTUTUS"_s));
    }
};

QTEST_MAIN(TestLaskupohjat)
#include "tst_laskupohjat.moc"
