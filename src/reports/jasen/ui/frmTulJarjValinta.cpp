#include "reports/jasen/ui/frmTulJarjValinta.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

QGroupBox *TulostusjarjestysKehys(QWidget *parent, QVector<QRadioButton *> &napit, int valittu)
{
    auto *kehys = new QGroupBox(QStringLiteral("Tulostusjärjestys"), parent);
    kehys->setObjectName(QStringLiteral("frameTulJarj"));
    auto *asettelu = new QVBoxLayout(kehys);
    const QString nimet[] = {QStringLiteral("Aakkostettu"), QStringLiteral("Postinumero"), QStringLiteral("Syntymäpäivä")};
    napit.clear();
    for (int i = 0; i < 3; ++i) {
        auto *n = new QRadioButton(nimet[i], kehys);
        n->setObjectName(QStringLiteral("optTulJarj%1").arg(i));
        asettelu->addWidget(n);
        napit << n;
    }
    napit[qBound(0, valittu, 2)]->setChecked(true);
    return kehys;
}

frmTulJarjValinta::frmTulJarjValinta(int valittu, QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmTulJarjValinta"));
    setWindowTitle(QStringLiteral("Vonari - Tulostusjärjestyksen valinta"));
    frameTulJarj = TulostusjarjestysKehys(this, optTulJarj, valittu);
    cSeuraava = new QPushButton(QStringLiteral("Seuraava >>"), this);
    cSeuraava->setObjectName(QStringLiteral("cSeuraava"));
    cSeuraava->setDefault(true);
    auto *asettelu = new QVBoxLayout(this);
    asettelu->addWidget(frameTulJarj);
    asettelu->addWidget(cSeuraava, 0, Qt::AlignRight);
    connect(cSeuraava, &QPushButton::clicked, this, &frmTulJarjValinta::cSeuraava_Click);
}

void frmTulJarjValinta::cSeuraava_Click()
{
    for (int i = 0; i < optTulJarj.size(); ++i)
        if (optTulJarj[i]->isChecked())
            iTulJarj = i;
    Cancelled = false;
    accept();
}
