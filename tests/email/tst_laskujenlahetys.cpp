// Sending the open batch of the demonstration club by e-mail: who gets a message, what the counts
// and the closing message say, jmEmailed set exactly for what the server took, a second press
// sending only the rest, the wait of the first message, a stop, the sales-type window's SMTP, and
// one run through a real SMTP server on loopback.
#include "sahkopostiseura.h"

#include "email/Laskujenlahetys.h"
#include "platform/recordingsender.h"
#include "postipalvelin.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

// Stops the run once it has reported `raja` steps done.
struct Pysayttaja : Edistyminen {
    qint64 raja;
    qint64 tehty = 0;
    explicit Pysayttaja(qint64 r) : raja(r) {}
    void vaihe(qint64 t, qint64) override { tehty = t; }
    bool keskeytetaanko() override { return tehty >= raja; }
};

} // namespace

class TestLaskujenlahetys : public QObject {
    Q_OBJECT

    // Nobody takes e-mail invoices but the members given, each with the address given.
    static QList<qint64> sallitut(Sahkopostiseura &s, const QStringList &osoitteet)
    {
        s.d->execute(u"UPDATE jr SET jrEmailLasku = 0"_s);
        QList<qint64> jasenet;
        db::Statement st(*s.d, u"SELECT jmjrID FROM jm ORDER BY jmID LIMIT ?"_s, {qint64(osoitteet.size())});
        while (st.next())
            jasenet << NullLong(st.value(0));
        for (qsizetype i = 0; i < jasenet.size(); ++i)
            s.d->execute(u"UPDATE jr SET jrEmailLasku = 1, jrEmail = ? WHERE jrID = ?"_s, {osoitteet[i], jasenet[i]});
        return jasenet;
    }

    static qint64 lahetetyt(Sahkopostiseura &s) { return s.luku(u"SELECT COUNT(*) FROM jm WHERE jmEmailed = 1"_s); }

    static Laskujenlahetys kaikille()
    {
        Laskujenlahetys l;
        l.saajat.valittu = true;
        return l;
    }

private slots:
    void init()
    {
        MainModule::EmailPerMin = 0;
    }

    void vali_data()
    {
        QTest::addColumn<qint64>("minuutissa");
        QTest::addColumn<int>("ms");
        QTest::newRow("ei rajaa") << qint64(0) << 0;
        QTest::newRow("negatiivinen") << qint64(-5) << 0;
        QTest::newRow("7") << qint64(7) << 8571;
        QTest::newRow("9 katkaistaan") << qint64(9) << 6666;
        QTest::newRow("30") << qint64(30) << 2000;
        QTest::newRow("yli 60000") << qint64(120000) << 0;
    }
    void vali()
    {
        QFETCH(qint64, minuutissa);
        QFETCH(int, ms);
        QCOMPARE(Lahetysvali(minuutissa), ms);
    }

    // Three members take e-mail invoices: one is refused by the server and one has no address.
    // Only the accepted invoice is marked; the next press retries the two and nothing else; when
    // all has gone the counts are 0 and 0 and the message still comes.
    void kaikilleJaUudestaan()
    {
        Sahkopostiseura s;
        mail::RecordingInstall posti;
        const QList<qint64> jasenet = sallitut(s, {u"a@example.fi"_s, u"b@example.fi"_s, QString()});
        posti.log().refused.insert(u"b@example.fi"_s);

        Lahetystulos t = LahetaLaskut(Ajo(*s.d), kaikille());
        QCOMPARE(t.viesti, LahetyksenYhteenveto(1, 2));
        QCOMPARE(t.viesti, u"Lasku lähetettiin 1 jäsenelle.\nLaskun lähetys ei onnistunut 2 jäsenelle.\n"
                           "Voit tulostaa lähettämättömät Tulosta painikkeella."_s);
        QCOMPARE(posti.log().messages.size(), 3);
        QCOMPARE(lahetetyt(s), 1);
        QCOMPARE(s.luku(u"SELECT jmEmailed FROM jm WHERE jmjrID = ?"_s, {jasenet[0]}), 1);
        mail::Message m;
        for (const mail::Message &v : posti.log().messages)
            if (v.to.value(0).address == u"a@example.fi"_s)
                m = v;
        QCOMPARE(m.from.address, u"jasensihteeri@vanhankylanus.example"_s);
        const qint64 jm = s.luku(u"SELECT jmID FROM jm WHERE jmjrID = ?"_s, {jasenet[0]});
        QCOMPARE(m.subject, NullText(s.d->scalar(u"SELECT jmOtsake FROM jm WHERE jmID = ?"_s, {jm})));
        QCOMPARE(m.body, AvoimenLaskunTeksti(*s.d, LueLaskupohja().teksti, jm));

        posti.log().refused.clear();
        s.d->execute(u"UPDATE jr SET jrEmail = 'c@example.fi' WHERE jrID = ?"_s, {jasenet[2]});
        const qsizetype ennen = posti.log().messages.size();
        t = LahetaLaskut(Ajo(*s.d), kaikille());
        QCOMPARE(t.viesti, LahetyksenYhteenveto(2, 0));
        QSet<QString> uudet;
        for (qsizetype i = ennen; i < posti.log().messages.size(); ++i)
            uudet << posti.log().messages[i].to.value(0).address;
        QCOMPARE(uudet, (QSet<QString>{u"b@example.fi"_s, u"c@example.fi"_s}));
        QCOMPARE(lahetetyt(s), 3);

        t = LahetaLaskut(Ajo(*s.d), kaikille());
        QCOMPARE(t.viesti, LahetyksenYhteenveto(0, 0));
        QCOMPARE(lahetetyt(s), 3);
    }

    // A sender that fails as a whole leaves every invoice unmarked and counts each as failed.
    void lahetinEiToimi()
    {
        Sahkopostiseura s;
        mail::RecordingInstall posti;
        sallitut(s, {u"a@example.fi"_s, u"b@example.fi"_s});
        posti.log().failure = u"Yhteys palvelimeen katkesi."_s;
        const Lahetystulos t = LahetaLaskut(Ajo(*s.d), kaikille());
        QCOMPARE(t.epaonnistui, 2);
        QCOMPARE(t.lahetetty, 0);
        QCOMPARE(lahetetyt(s), 0);
    }

    // One person chosen: the refusals in their own words, nothing sent; a member with everything
    // in order gets the invoice.
    void henkilo_data()
    {
        QTest::addColumn<int>("tapaus");
        QTest::addColumn<QString>("viesti");
        QTest::addColumn<int>("viesteja");
        QTest::newRow("ei jäsentä") << 0 << u"Virhe jäsentietojen haussa. Käynnistä Vonari uudestaan."_s << 0;
        QTest::newRow("ei laskua") << 1 << u"Jäsenelle ei ole luotu laskua.\n(Tai lasku on jo lähetetty.)"_s << 0;
        QTest::newRow("jo lähetetty") << 2 << u"Jäsenelle ei ole luotu laskua.\n(Tai lasku on jo lähetetty.)"_s << 0;
        QTest::newRow("ei sallittu") << 3 << u"Jäsenelle ei ole sallittu sähköpostilaskutusta jäsenrekisterissä."_s << 0;
        QTest::newRow("ei valintaa") << 5 << u"Tarkista henkilö valinta."_s << 0;
        QTest::newRow("lähtee") << 4 << LahetyksenYhteenveto(1, 0) << 1;
    }
    void henkilo()
    {
        QFETCH(int, tapaus);
        QFETCH(QString, viesti);
        QFETCH(int, viesteja);
        Sahkopostiseura s;
        mail::RecordingInstall posti;
        const qint64 jasen = sallitut(s, {u"a@example.fi"_s}).value(0);
        Laskujenlahetys l = kaikille();
        l.saajat.tunniste = jasen;
        if (tapaus == 0)
            l.saajat.tunniste = s.luku(u"SELECT MAX(jrID) FROM jr"_s) + 1;
        if (tapaus == 1)
            s.d->execute(u"DELETE FROM jm WHERE jmjrID = ?"_s, {jasen});
        if (tapaus == 2)
            s.d->execute(u"UPDATE jm SET jmEmailed = 1 WHERE jmjrID = ?"_s, {jasen});
        if (tapaus == 5)
            l.saajat.valittu = false;
        if (tapaus == 3)
            s.d->execute(u"UPDATE jr SET jrEmailLasku = 0 WHERE jrID = ?"_s, {jasen});
        QCOMPARE(LahetaLaskut(Ajo(*s.d), l).viesti, viesti);
        QCOMPARE(posti.log().messages.size(), viesteja);
    }

    // The holders of an attribute: one holding it twice gets one message; with "Muille" the
    // others get theirs and the holders none.
    void ominaisuus_data()
    {
        QTest::addColumn<bool>("muille");
        QTest::addColumn<QStringList>("saajat");
        QTest::newRow("haltijat") << false << QStringList{u"a@example.fi"_s};
        QTest::newRow("muille") << true << QStringList{u"b@example.fi"_s};
    }
    void ominaisuus()
    {
        QFETCH(bool, muille);
        QFETCH(QStringList, saajat);
        Sahkopostiseura s;
        mail::RecordingInstall posti;
        const qint64 jasen = sallitut(s, {u"a@example.fi"_s, u"b@example.fi"_s}).value(0);
        const qint64 pi = s.luku(u"SELECT MIN(piID) FROM pi"_s);
        s.d->execute(u"DELETE FROM pt WHERE ptpiID = ?"_s, {pi});
        for (int i = 0; i < 2; ++i)
            s.d->execute(u"INSERT INTO pt (ptjrID, ptpiID) VALUES (?, ?)"_s, {jasen, pi});
        Laskujenlahetys l = kaikille();
        l.saajat.tunniste = -pi;
        l.saajat.chkMuille = muille;
        QCOMPARE(LahetaLaskut(Ajo(*s.d), l).viesti, LahetyksenYhteenveto(1, 0));
        QStringList osoitteet;
        for (const mail::Message &m : posti.log().messages)
            osoitteet << m.to.value(0).address;
        QCOMPARE(osoitteet, saajat);
    }

    // A missing template stops the run before anything is sent.
    void pohjaPuuttuu()
    {
        Sahkopostiseura s;
        mail::RecordingInstall posti;
        sallitut(s, {u"a@example.fi"_s});
        const QString pohja = MainModule::EmailPohja;
        MainModule::EmailPohja = s.ohjelmanTiedosto(u"eiole.txt"_s);
        const QString viesti = LahetaLaskut(Ajo(*s.d), kaikille()).viesti;
        MainModule::EmailPohja = pohja;
        QCOMPARE(viesti,
                 u"Laskupohjaa ei voida avata. Tarkista asetukista Email laskupohja."_s);
        QVERIFY(posti.log().messages.isEmpty());
    }

    // Only the first unsent invoice of a member goes in one press.
    void toinenLaskuSeuraavalla()
    {
        Sahkopostiseura s;
        mail::RecordingInstall posti;
        const qint64 jasen = sallitut(s, {u"a@example.fi"_s}).value(0);
        const qint64 jm = s.luku(u"SELECT jmID FROM jm WHERE jmjrID = ?"_s, {jasen});
        s.d->execute(u"CREATE TEMP TABLE kopio AS SELECT * FROM jm WHERE jmID = ?"_s, {jm});
        s.d->execute(u"UPDATE kopio SET jmID = (SELECT MAX(jmID) + 1 FROM jm), jmOtsake = 'Toinen'"_s);
        s.d->execute(u"INSERT INTO jm SELECT * FROM kopio"_s);
        QCOMPARE(LahetaLaskut(Ajo(*s.d), kaikille()).lahetetty, 1);
        QCOMPARE(LahetaLaskut(Ajo(*s.d), kaikille()).lahetetty, 1);
        QCOMPARE(posti.log().messages.size(), 2);
        QCOMPARE(posti.log().messages[1].subject, u"Toinen"_s);
    }

    // With a pace the first message waits one interval and the rest go at once; a press with
    // nothing to send does not wait.
    void tahti()
    {
        Sahkopostiseura s;
        mail::RecordingInstall posti;
        sallitut(s, {u"a@example.fi"_s, u"b@example.fi"_s, u"c@example.fi"_s});
        MainModule::EmailPerMin = 30;
        QList<int> odotukset;
        Laskujenlahetys l = kaikille();
        l.odota = [&](int ms) {
            QCOMPARE(posti.log().messages.size(), 0);
            odotukset << ms;
        };
        QCOMPARE(LahetaLaskut(Ajo(*s.d), l).lahetetty, 3);
        QCOMPARE(odotukset, QList<int>{2000});
        LahetaLaskut(Ajo(*s.d), l);
        QCOMPARE(odotukset.size(), 1);
    }

    // A stop between two messages keeps what went out and says so.
    void keskeytys()
    {
        Sahkopostiseura s;
        mail::RecordingInstall posti;
        sallitut(s, {u"a@example.fi"_s, u"b@example.fi"_s, u"c@example.fi"_s});
        const qint64 ensimmaisenIndeksi = [&] {
            // The run goes through the members by name: stop once the first taker is behind.
            db::Statement st(*s.d, u"SELECT jrID FROM jr ORDER BY jrSukunimi COLLATE FI, jrEtunimi COLLATE FI, jrID"_s);
            qint64 i = 0;
            while (st.next()) {
                ++i;
                if (s.luku(u"SELECT jrEmailLasku FROM jr WHERE jrID = ?"_s, {st.value(0)}) == 1)
                    return i;
            }
            return i;
        }();
        Pysayttaja stop(ensimmaisenIndeksi);
        const Lahetystulos t = LahetaLaskut(Ajo(*s.d, &stop), kaikille());
        QVERIFY(t.keskeytetty);
        QCOMPARE(t.lahetetty, 1);
        QCOMPARE(t.viesti, u"Lähetys keskeytettiin.\n"_s + LahetyksenYhteenveto(1, 0));
        QCOMPARE(lahetetyt(s), 1);
    }

    // The sales-type window sends by SMTP even when the settings use the system's mail.
    void vainSmtp_data()
    {
        QTest::addColumn<bool>("vainSmtp");
        QTest::addColumn<bool>("smtp");
        QTest::newRow("tavallinen") << false << false;
        QTest::newRow("myyntilaji") << true << true;
    }
    void vainSmtp()
    {
        QFETCH(bool, vainSmtp);
        QFETCH(bool, smtp);
        Sahkopostiseura s;
        sallitut(s, {u"a@example.fi"_s});
        MainModule::EmailSystem = false;
        QList<mail::Route> reitit;
        auto log = std::make_shared<mail::RecordingSender::Log>();
        mail::setSenderMaker([&](const mail::Settings &a) {
            reitit << a.route;
            return std::make_unique<mail::RecordingSender>(log);
        });
        Laskujenlahetys l = kaikille();
        l.vainSmtp = vainSmtp;
        const Lahetystulos t = LahetaLaskut(Ajo(*s.d), l);
        mail::setSenderMaker({});
        QCOMPARE(t.lahetetty, 1);
        QCOMPARE(reitit, QList<mail::Route>{smtp ? mail::Route::Smtp : mail::Route::System});
    }

    // The whole road through a real server: one session, the refused address unmarked.
    void oikeaPalvelin()
    {
        Sahkopostiseura s;
        testi::PalvelimenAsetus asetus;
        asetus.hylattavat = {u"b@example.fi"_s};
        testi::Postipalvelin p(asetus);
        QVERIFY2(p.kaynnissa(), qPrintable(p.virhe()));
        const QList<qint64> jasenet = sallitut(s, {u"a@example.fi"_s, u"b@example.fi"_s, u"c@example.fi"_s});
        Laskujenlahetys l = kaikille();
        mail::Settings reitti;
        reitti.route = mail::Route::Smtp;
        reitti.smtp.host = u"127.0.0.1"_s;
        reitti.smtp.port = p.portti();
        l.reitti = reitti;
        const Lahetystulos t = LahetaLaskut(Ajo(*s.d), l);
        QCOMPARE(t.viesti, LahetyksenYhteenveto(2, 1));
        const auto saapuneet = p.viestit();
        QCOMPARE(saapuneet.size(), 2);
        QSet<QString> vastaanottajat;
        for (const auto &v : saapuneet)
            vastaanottajat << v.kirjekuori[u"rcpt_tos"_s].toArray().at(0).toString();
        QCOMPARE(vastaanottajat, (QSet<QString>{u"a@example.fi"_s, u"c@example.fi"_s}));
        QCOMPARE(s.luku(u"SELECT jmEmailed FROM jm WHERE jmjrID = ?"_s, {jasenet[1]}), 0);
        QCOMPARE(lahetetyt(s), 2);
        QVERIFY(saapuneet[0].luettu[u"body"_s].toString().contains(u"25,00"_s));
    }
};

QTEST_GUILESS_MAIN(TestLaskujenlahetys)
#include "tst_laskujenlahetys.moc"
