#include "reports/ui/frmTulostus.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "platform/dialogs.h"
#include "reports/Tulostus.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrinterInfo>
#include <QPushButton>

frmTulostus::frmTulostus(bool vainTulostin, QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmTulostus"));
    setWindowTitle(QStringLiteral("Vonari - Tulostusasetukset"));
    cmbTulostusLaite = new QComboBox(this);
    cmbTulostusLaite->setObjectName(QStringLiteral("cmbTulostusLaite"));
    if (!vainTulostin)
        cmbTulostusLaite->addItem(QStringLiteral("Ikkuna"), 0);
    cmbTulostusLaite->addItem(QStringLiteral("Tulostin"), 1);
    cmbTulostusLaite->setCurrentIndex(0);
    tKopioita = new QLineEdit(QString::number(Kopiot), this);
    tKopioita->setObjectName(QStringLiteral("tKopioita"));
    cTulostin = new QPushButton(QStringLiteral("Tulostin"), this);
    cTulostin->setObjectName(QStringLiteral("cTulostin"));
    cTulosta = new QPushButton(QStringLiteral("Tulosta"), this);
    cTulosta->setObjectName(QStringLiteral("cTulosta"));
    cTulosta->setDefault(true);
    cPeruTulostus = new QPushButton(QStringLiteral("Peruuta"), this);
    cPeruTulostus->setObjectName(QStringLiteral("cPeruTulostus"));

    auto *kentat = new QGridLayout;
    kentat->addWidget(new QLabel(QStringLiteral("Tulosta:"), this), 0, 0);
    kentat->addWidget(cmbTulostusLaite, 0, 1);
    kentat->addWidget(new QLabel(QStringLiteral("Kopioita:"), this), 1, 0);
    kentat->addWidget(tKopioita, 1, 1);
    auto *napit = new QHBoxLayout;
    napit->addWidget(cTulostin);
    napit->addStretch();
    napit->addWidget(cTulosta);
    napit->addWidget(cPeruTulostus);
    auto *koko = new QVBoxLayout(this);
    koko->addLayout(kentat);
    koko->addLayout(napit);

    connect(cTulosta, &QPushButton::clicked, this, &frmTulostus::cTulosta_Click);
    connect(cPeruTulostus, &QPushButton::clicked, this, &frmTulostus::cPeruTulostus_Click);
    connect(cTulostin, &QPushButton::clicked, this, &frmTulostus::cTulostin_Click);
}

void frmTulostus::cTulosta_Click()
{
    const int laite = cmbTulostusLaite->currentIndex() >= 0 ? cmbTulostusLaite->currentData().toInt() : 0;
    if (!HyvaksyTulostusasetukset(laite, tKopioita->text())) {
        tKopioita->setFocus();
        tKopioita->selectAll();
        return;
    }
    accept();
}

void frmTulostus::cPeruTulostus_Click()
{
    reject();
}

void frmTulostus::reject()
{
    TulostusPeruttu = true;
    QDialog::reject();
}

void frmTulostus::cTulostin_Click()
{
    const QStringList tulostimet = QPrinterInfo::availablePrinterNames();
    if (tulostimet.isEmpty()) {
        Ilmoita(QStringLiteral("Tulostimia ei ole asennettu. Raportin voi katsoa ikkunassa ja tallentaa sieltä PDF-tiedostoksi."));
        return;
    }
    const QString nimi = dlg::current().choosePrinter(QStringLiteral("Tulostin"), tulostimet);
    if (nimi.isEmpty())
        return;
    const QPrinterInfo tiedot = QPrinterInfo::printerInfo(nimi);
    Raporttiajo &r = Raportti();
    r.PrinterName = nimi;
    r.PrinterDriver = tiedot.makeAndModel();
    r.PrinterPort = tiedot.location();
}

bool NaytaTulostusasetukset(bool vainTulostin, QWidget *parent)
{
    frmTulostus w(vainTulostin, parent);
    w.exec();
    return !TulostusPeruttu;
}
