#include "reports/jasen/ui/frmTulostusmuodonvalinta.h"

#include "reports/jasen/ui/frmTulJarjValinta.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

const int frmTulostusmuodonvalinta::Raportti[9] = {0, 3, 4, 2, 5, 6, 7, 8, 1};

frmTulostusmuodonvalinta::frmTulostusmuodonvalinta(int valittuJarj, int valittuTyyppi, QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmTulostusmuodonvalinta"));
    setWindowTitle(QStringLiteral("Vonari - Tulostusmuodon valinta"));
    frameTulJarj = TulostusjarjestysKehys(this, optTulJarj, valittuJarj);

    frameTulostevalinnat = new QGroupBox(QStringLiteral("Tulostevalinnat"), this);
    frameTulostevalinnat->setObjectName(QStringLiteral("frameTulostevalinnat"));
    auto *tyypit = new QVBoxLayout(frameTulostevalinnat);
    tyypit->addWidget(new QLabel(QStringLiteral("Tulostetyyppi"), frameTulostevalinnat));
    const QString nimet[9] = {QStringLiteral("Luettelo"),       QStringLiteral("Tarrat"),
                              QStringLiteral("Tarrat tittelillä"), QStringLiteral("Laaja luettelo"),
                              QStringLiteral("Osoite arkille"), QStringLiteral("Jäsenluettelo"),
                              QStringLiteral("Rekisteritiedot"), QStringLiteral("Luett. kaduittain"),
                              QStringLiteral("Luett. omin.")};
    for (int i = 0; i < 9; ++i) {
        auto *n = new QRadioButton(nimet[i], frameTulostevalinnat);
        n->setObjectName(QStringLiteral("optPrintType%1").arg(i));
        n->setChecked(Raportti[i] == valittuTyyppi);
        tyypit->addWidget(n);
        optPrintType << n;
    }

    cSeuraava = new QPushButton(QStringLiteral("Seuraava >>"), this);
    cSeuraava->setObjectName(QStringLiteral("cSeuraava"));
    cSeuraava->setDefault(true);
    auto *kehykset = new QHBoxLayout;
    kehykset->addWidget(frameTulJarj, 0, Qt::AlignTop);
    kehykset->addWidget(frameTulostevalinnat);
    auto *asettelu = new QVBoxLayout(this);
    asettelu->addLayout(kehykset);
    asettelu->addWidget(cSeuraava, 0, Qt::AlignRight);
    connect(cSeuraava, &QPushButton::clicked, this, &frmTulostusmuodonvalinta::cSeuraava_Click);
}

void frmTulostusmuodonvalinta::cSeuraava_Click()
{
    for (int i = 0; i < optTulJarj.size(); ++i)
        if (optTulJarj[i]->isChecked())
            iTulJarj = i;
    for (int i = 0; i < optPrintType.size(); ++i)
        if (optPrintType[i]->isChecked())
            iPrintType = Raportti[i];
    Cancelled = false;
    accept();
}
