// The e-mail preview on the demonstration club: browsing the open batch with its keys (beeping at
// either end), the refusal of a missing template, the invoice window's button, and the payment
// book's reminder of the invoice on screen.
#include "sahkopostiseura.h"

#include "email/Laskujenlahetys.h"
#include "email/ui/frmEmailPreview.h"
#include "invoicing/ui/frmMaksujenLuonti.h"
#include "payments/ui/frmMaksut.h"
#include "platform/recordingsender.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QToolButton>

namespace {

frmEmailPreview *avoinEsikatselu()
{
    for (QWidget *w : QApplication::topLevelWidgets())
        if (auto *e = qobject_cast<frmEmailPreview *>(w); e && e->isVisible())
            return e;
    return nullptr;
}

} // namespace

class TestFrmEmailPreview : public QObject {
    Q_OBJECT

private slots:
    void selaus()
    {
        Sahkopostiseura s;
        s.pohja(QStringLiteral("lasku.txt"), "<LASKUNUMERO:0> <MAKSAJANNIMI:0>\n<LASKURIVIT><RIVIAIHE:12><SUMMA:0></LASKURIVIT>");
        const QString pohja = LueLaskupohja().teksti;
        const QList<qint64> laskut = AvoimetLaskut(*s.d);
        const auto teksti = [&](int i) {
            return AvoimenLaskunTeksti(*s.d, pohja, laskut[i]).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        };
        QPointer<frmEmailPreview> w = frmEmailPreview::AvaaLaskut(nullptr);
        QVERIFY(w);
        QCOMPARE(w->windowTitle(), QStringLiteral("Vonari - Sähköpostilaskun esikatselu"));
        w->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(w));
        QVERIFY(w->tLaskuTeksti->isReadOnly());
        QCOMPARE(w->tLaskuTeksti->toPlainText(), teksti(0));
        QVERIFY(w->tLaskuTeksti->toPlainText().contains(QStringLiteral("Vuosimaksu  25,00\n")));
        QCOMPARE(w->lblTietue->text(), QStringLiteral("Lasku 1 / %1").arg(laskut.size()));

        QTest::keyClick(w, Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(s.dlg.beeps, 1);
        QCOMPARE(w->kohta(), 0);
        QTest::keyClick(w, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(w->tLaskuTeksti->toPlainText(), teksti(1));
        QTest::keyClick(w, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(w->kohta(), int(laskut.size()) - 1);
        QCOMPARE(w->tLaskuTeksti->toPlainText(), teksti(int(laskut.size()) - 1));
        QTest::keyClick(w, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(s.dlg.beeps, 2);
        QCOMPARE(w->kohta(), int(laskut.size()) - 1);
        QTest::keyClick(w, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(w->tLaskuTeksti->toPlainText(), teksti(0));

        // The text box takes what the window gains.
        const int leveys = w->tLaskuTeksti->width();
        w->resize(w->width() + 200, w->height());
        QTRY_COMPARE(w->tLaskuTeksti->width(), leveys + 200);
        w->cClose->click();
        QTRY_VERIFY(!w);
        QVERIFY(s.dlg.messages().isEmpty());
    }

    void tyhjaEraJaPuuttuvaPohja()
    {
        Sahkopostiseura s;
        s.d->execute(QStringLiteral("DELETE FROM jm"));
        QPointer<frmEmailPreview> w = frmEmailPreview::AvaaLaskut(nullptr);
        QVERIFY(w);
        QCOMPARE(w->kohta(), -1);
        QVERIFY(w->tLaskuTeksti->toPlainText().isEmpty());
        w->cSeuraava->click();
        w->cViimeinen->click();
        QCOMPARE(w->kohta(), -1);
        QCOMPARE(s.dlg.beeps, 1);
        delete w;

        QFile::remove(MainModule::EmailPohja);
        QVERIFY(!frmEmailPreview::AvaaLaskut(nullptr));
        QCOMPARE(s.dlg.messages(), QStringList{QStringLiteral("Laskupohjaa ei voida avata. Tarkista asetukista Email laskupohja.")});
    }

    void laskutusikkunanPainike()
    {
        Sahkopostiseura s;
        QPointer<frmMaksujenLuonti> w = new frmMaksujenLuonti;
        QVERIFY(w->Lataa());
        w->show();
        w->cEmailPreview->click();
        frmEmailPreview *e = avoinEsikatselu();
        QVERIFY(e);
        QCOMPARE(e->kohta(), 0);
        QVERIFY(e->tLaskuTeksti->toPlainText().contains(QStringLiteral("Vuosimaksu")));
        delete w; // the preview with it
    }

    // "Sähköposti" sends to everybody chosen who takes e-mail invoices and says how it went; the
    // buttons are back when the run is over.
    void laskutusikkunanLahetys()
    {
        Sahkopostiseura s;
        mail::RecordingInstall posti;
        s.d->execute(QStringLiteral("UPDATE jr SET jrEmailLasku = 0"));
        s.d->execute(QStringLiteral("UPDATE jr SET jrEmailLasku = 1, jrEmail = 'a@example.fi'"
                                    " WHERE jrID = (SELECT jmjrID FROM jm ORDER BY jmID LIMIT 1)"));
        QPointer<frmMaksujenLuonti> w = new frmMaksujenLuonti;
        QVERIFY(w->Lataa());
        w->show();
        w->cmbNimet->setCurrentIndex(w->cmbNimet->findData(0, Qt::UserRole));
        QVERIFY(w->cEmail->isEnabled());
        w->cEmail->click();
        QCOMPARE(s.dlg.messages(), QStringList{LahetyksenYhteenveto(1, 0)});
        QCOMPARE(posti.log().messages.size(), 1);
        QCOMPARE(s.luku(QStringLiteral("SELECT COUNT(*) FROM jm WHERE jmEmailed = 1")), 1);
        QVERIFY(w->cEmail->isEnabled());
        delete w;
    }

    // The reminder of the fetched invoice; nothing fetched is told and opens nothing.
    void maksukirjanMuistutus()
    {
        Sahkopostiseura s;
        s.pohja(QStringLiteral("karhu.txt"), "MUISTUTUS <VIITENUMERO:0>");
        auto *w = new frmMaksut;
        w->setAttribute(Qt::WA_DeleteOnClose, false);
        w->show();
        w->cEmailPreview->click();
        QCOMPARE(s.dlg.messages(), QStringList{QStringLiteral("Laskua ei ole haettu näyttöön.")});
        QVERIFY(!avoinEsikatselu());

        const QString viite = NullText(s.d->scalar(QStringLiteral("SELECT jmhjmViitenumero FROM jmhist WHERE jmhjmMaksettu = 0"
                                                                   " AND jmhjmViitenumero <> '' ORDER BY jmhID LIMIT 1")));
        w->tViitenumero->setText(viite);
        w->cHaeTiedot_Click();
        QCOMPARE(w->lblViitenumero->text(), viite);
        w->cEmailPreview->click();
        frmEmailPreview *e = avoinEsikatselu();
        QVERIFY(e);
        QCOMPARE(e->tLaskuTeksti->toPlainText(), QStringLiteral("MUISTUTUS ") + viite);
        QVERIFY(!e->cSeuraava->isEnabled());
        QCOMPARE(s.dlg.messages().size(), 1);
        delete w;
    }
};

QTEST_MAIN(TestFrmEmailPreview)
#include "tst_frmemailpreview.moc"
