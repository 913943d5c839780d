#include "reports/jasen/ui/frmRekisteritiedot.h"

#include "core/Ilmoitukset.h"
#include "platform/database.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
// The last choice is the next default: a user who copies several members wants the same sections.
cRekisteritietovalinta edellinen;
} // namespace

frmRekisteritiedot::frmRekisteritiedot(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmRekisteritiedot"));
    setWindowTitle(QStringLiteral("Vonari - Rekisteritiedot"));
    auto luo = [this](const char *nimi, const QString &teksti, bool paalla) {
        auto *c = new QCheckBox(teksti, this);
        c->setObjectName(QString::fromLatin1(nimi));
        c->setChecked(paalla);
        return c;
    };
    Valinta = edellinen;
    chkYhteystiedot = luo("chkYhteystiedot", QStringLiteral("Yhteystiedot"), Valinta.Yhteystiedot);
    chkOminaisuustiedot = luo("chkOminaisuustiedot", QStringLiteral("Ominaisuustiedot"), Valinta.Ominaisuustiedot);
    chkPerhetiedot = luo("chkPerhetiedot", QStringLiteral("Perhetiedot"), Valinta.Perhetiedot);
    chkMaksutiedot = luo("chkMaksutiedot", QStringLiteral("Maksutiedot"), Valinta.Maksutiedot);
    cSeuraava = new QPushButton(QStringLiteral("Seuraava >>"), this);
    cSeuraava->setObjectName(QStringLiteral("cSeuraava"));
    cSeuraava->setDefault(true);
    auto *asettelu = new QVBoxLayout(this);
    for (QCheckBox *c : {chkYhteystiedot, chkOminaisuustiedot, chkPerhetiedot, chkMaksutiedot})
        asettelu->addWidget(c);
    asettelu->addWidget(cSeuraava, 0, Qt::AlignRight);
    connect(cSeuraava, &QPushButton::clicked, this, &frmRekisteritiedot::cSeuraava_Click);
}

void frmRekisteritiedot::cSeuraava_Click()
{
    Valinta.Yhteystiedot = chkYhteystiedot->isChecked();
    Valinta.Ominaisuustiedot = chkOminaisuustiedot->isChecked();
    Valinta.Perhetiedot = chkPerhetiedot->isChecked();
    Valinta.Maksutiedot = chkMaksutiedot->isChecked();
    edellinen = Valinta;
    Cancelled = false;
    accept();
}

bool KysyRekisteritietovalinta(QWidget *parent, cRekisteritietovalinta &valinta)
{
    frmRekisteritiedot w(parent);
    w.exec();
    if (w.Cancelled)
        return false;
    valinta = w.Valinta;
    return true;
}

void AvaaRekisteritiedot(QWidget *parent, qint64 jrID)
{
    cRekisteritietovalinta v;
    if (!KysyRekisteritietovalinta(parent, v))
        return;
    QString teksti;
    try {
        teksti = KoostaRekisteritiedot(jrID, v.Yhteystiedot, v.Ominaisuustiedot, v.Perhetiedot, v.Maksutiedot);
    } catch (const db::DbError &e) {
        IlmoitaVirhe(QStringLiteral("Jäsenen tietoja ei voitu koota: ") + e.message());
        return;
    }
    QApplication::clipboard()->setText(teksti);
    Ilmoita(QStringLiteral("Jäsenen tiedot koostettu leikepöydälle."));
}
