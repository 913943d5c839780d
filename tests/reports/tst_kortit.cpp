// Member cards and a member's register information: the cards as laid out on the page, the
// compiled text section by section, the card window.
#include "core/MainModule.h"
#include "members/Rekisteritiedot.h"
#include "raporttiseura.h"
#include "reports/jasen/Jasenkortit.h"
#include "reports/Raporttiajo.h"
#include "reports/Tulostus.h"
#include "reports/jasen/ui/frmJasenkortit.h"
#include "reports/ui/frmTulostus.h"
#include "seurat.h"
#include "testiapu.h"
#include "testipohja.h"
#include "tulostuskirjaus.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

Asiakirja Kortit(const QString &kanta, const QString &valinta)
{
    Raporttiajo r;
    r.ResetReportFormulas(kanta);
    r.ReportFileName = u"jk1.rpt"_s;
    r.Formulas[0] = u"Seurannimi= 'Kylän Kipinä ry'"_s;
    r.Formulas[1] = u"Otsaketeksti= 'Jäsenkortti 2026'"_s;
    r.SelectionFormula = valinta;
    return r.Laadi();
}

} // namespace

class TestKortit : public Testipohja {
    Q_OBJECT

private slots:
    void cleanup()
    {
        PalautaTulostustila();
        Testipohja::cleanup();
    }

    // Ten cards to an A4 page, all inside the paper; the cards of everyone, of an attribute's
    // holders or the others, of one member.
    void kortitSivuilleJaValinta()
    {
        const QString kanta = seurat::Kopio(150, env->path(u"demo.mdb"_s));
        auto d = db::Database::open(kanta);
        const int jasenia = d->scalar(u"SELECT COUNT(*) FROM jr"_s).toInt();
        const Asiakirja a = Kortit(kanta, QString());
        QCOMPARE(a.riveja, jasenia);
        QCOMPARE(int(a.sivut.size()), (jasenia + 9) / 10);
        for (size_t s = 0; s < a.sivut.size(); ++s) {
            QCOMPARE(a.tekstit(int(s)).count(u"Jäsenkortti 2026"_s), s + 1 < a.sivut.size() ? 10 : jasenia - 10 * int(s));
            const QRectF paperi(QPointF(-1, -1), a.koko + QSizeF(2, 2));
            for (const Tulostekohde &k : a.sivut[s].kohteet)
                QVERIFY(paperi.contains(k.alue.topLeft()) && paperi.contains(k.alue.bottomRight()));
        }
        // The person list and the selection of each kind of row, with the cards each one prints.
        const QVector<KorttiHenkilo> rivit = KorttiHenkilot(*d); // everyone, the attributes, the members
        QCOMPARE(rivit.size(), 1 + d->scalar(u"SELECT COUNT(*) FROM pi"_s).toInt() + jasenia);
        const qint64 piID = -rivit[1].arvo;
        const int haltijat = d->scalar(u"SELECT COUNT(DISTINCT ptjrID) FROM pt WHERE ptpiID = ?"_s, {piID}).toInt();
        QVERIFY(haltijat > 0 && haltijat < jasenia);

        QCOMPARE(Kortit(kanta, KorttienValinta(*d, 0, true)).riveja, jasenia);
        QCOMPARE(Kortit(kanta, KorttienValinta(*d, -piID, false)).riveja, haltijat);
        d->execute(u"UPDATE jr SET jrMukaan = 0"_s); // the search conditions' choice is overwritten
        QCOMPARE(Kortit(kanta, KorttienValinta(*d, -piID, true)).riveja, jasenia - haltijat);
        QCOMPARE(Kortit(kanta, KorttienValinta(*d, rivit.last().arvo, false)).riveja, 1);
    }

    // Every line of every section on a member with an attribute, a family and an invoice.
    void rekisteritiedotKokonaan()
    {
        auto d = LuoTyhjaSeura(env->path(u"seura.mdb"_s));
        const qint64 paa = LisaaJasen(*d, {u"Virtanen"_s, u"Eero"_s, u"Koulukatu 1"_s, u"33100"_s, u"Tampere"_s, u"040 1"_s, u"12"_s,
                                          true, QDate(1970, 3, 5)});
        const qint64 lapsi = LisaaJasen(*d, {u"Virtanen"_s, u"Aino"_s, u"Koulukatu 1"_s, u"33100"_s, u"Tampere"_s, u"040 2"_s,
                                            u"13"_s, QVariant()});
        d->execute(u"UPDATE jr SET jrPerheenLaskutettava = 1, jrEmailLasku = 0, jrTitteli = 'FM', "
                   "jrMuistio = 'O''Brienin ystävä' WHERE jrID = ?"_s, {paa});
        d->execute(u"UPDATE jr SET jrPerheenLaskutettava = NULL, jrEmailLasku = NULL WHERE jrID = ?"_s, {lapsi});
        d->execute(u"INSERT INTO jrPerhe (jrPMID, jrPSubID) VALUES (?, ?)"_s, {paa, lapsi});
        d->execute(u"INSERT INTO pi (piNimi, piKuvaus) VALUES ('Hallitus', 'Hallituksen jäsen')"_s);
        const qint64 pi = d->lastInsertId();
        d->execute(u"INSERT INTO pt (ptjrID, ptpiID, ptValDate, ptValLong, ptValCurrency, ptValMemo) VALUES (?, ?, ?, ?, ?, ?)"_s,
                   {paa, pi, u"2024-01-15"_s, 3, Currency::fromRaw(125000).raw(), u"puheenjohtaja"_s});
        d->execute(u"INSERT INTO jmhist (jmhjmjrID, jmhjmLaskunumero, jmhjmLaskupaiva, jmhjmErapaiva, jmhjmViitenumero, "
                   "jmhjmHinta, jmhjmTeksti, jmhjmOtsake, jmhjmMaksettu) VALUES (?, 1001, '2025-02-01', '2025-02-15', '10016', "
                   "?, 'Jäsenmaksu 2025', 'Lasku', 1)"_s,
                   {paa, Currency::fromUnits(25).raw()});

        // The sections in order, each value as the card shows it.
        const QString kaikki = KoostaRekisteritiedot(*d, paa, true, true, true, true);
        QCOMPARE(kaikki.split(u'\n').filter(QRegularExpression(u"^\\w+:$"_s)),
                 (QStringList{u"Yhteystiedot:"_s, u"Ominaisuustiedot:"_s, u"Perhetiedot:"_s, u"Maksutiedot:"_s}));
        for (const QString &osa : {u"\nSyntymäpäivä: 5.3.1970\n"_s, u"\nMuistio: O'Brienin ystävä\nEmail lasku: Ei\nJäsenmaksu OK: Kyllä\n"_s,
                                   u"\nHallitus\n(Hallituksen jäsen)\nPäivämäärä: 15.1.2024\nLuku: 3\nArvo: 12,50\nMuistio: puheenjohtaja\n"_s,
                                   u"\nPerheeseen kuuluvat: \nVirtanen Aino\n"_s, u"\nLaskupäivä: 1.2.2025\nEräpäivä: 15.2.2025\nLoppusumma: 25,00\n"_s,
                                   u"\nLaskunumero: 1001\nViitenumero: 10016\nMaksettu: Kyllä\n"_s})
            QVERIFY2(kaikki.contains(osa), qPrintable(osa));

        const QString jasen = KoostaRekisteritiedot(*d, lapsi, true, false, true, false);
        QVERIFY(jasen.contains(u"\nEmail lasku: \nJäsenmaksu OK: \nPerheen laskutettava: \n"_s)); // Null: the bare label
        QVERIFY(jasen.contains(u"Perhetiedot:\n-------------------------------\nKuuluu perheeseen: Virtanen Eero\n====="_s));

        // Empty sections say so or stay empty.
        d->execute(u"DELETE FROM jmhist"_s);
        d->execute(u"DELETE FROM jrPerhe"_s);
        QVERIFY(KoostaRekisteritiedot(*d, lapsi, false, false, true, true)
                    .endsWith(u"Ei perhetietoja\n===============================\nMaksutiedot:\n-------------------------------\n"
                              "==============================="_s));
        TaytaRekisteritiedot(*d, {true, true, true, true});
        TaytaRekisteritiedot(*d, {true, false, false, false}); // rebuilt whole, not added to
        QCOMPARE(d->scalar(u"SELECT COUNT(*) FROM Rekisteritiedot"_s).toInt(), 2);
        QCOMPARE(d->scalar(u"SELECT Tiedot FROM Rekisteritiedot WHERE jrID = ?"_s, {lapsi}).toString(),
                 KoostaRekisteritiedot(*d, lapsi, true, false, false, false));
    }

    // The card window: a print of one member to the preview with its texts.
    void jasenkorttiIkkuna()
    {
        MainModule::DatabasePath = seurat::Kopio(150, env->path(u"demo.mdb"_s));
        MainModule::RegName = u"Kylän Kipinä ry"_s;
        Kirjaus kirjaus;
        AsetaTulostuskohde(&kirjaus);
        frmJasenkortit w;
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));

        const int jasen = w.cmbNimet->count() - 1;
        w.cmbNimet->setCurrentIndex(jasen);
        w.tOtsake->setText(u"Kausikortti"_s);
        w.tAlateksti2->setText(u"Näytä kortti ovella"_s);
        testi::kunAuki<frmTulostus>([](frmTulostus *t) { testi::paina(t->cTulosta); });
        testi::paina(w.cTulosta);
        QCOMPARE(int(kirjaus.esikatsellut.size()), 1);
        const QStringList tekstit = kirjaus.esikatsellut[0].tekstit(0);
        for (const QString &t : {u"Kylän Kipinä ry"_s, u"Kausikortti"_s, u"Näytä kortti ovella"_s})
            QVERIFY2(tekstit.contains(t), qPrintable(tekstit.join(u'|')));
        QCOMPARE(kirjaus.esikatsellut[0].riveja, 1);
    }
};

QTEST_MAIN(TestKortit)
#include "tst_kortit.moc"
