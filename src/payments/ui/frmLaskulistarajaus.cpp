#include "payments/ui/frmLaskulistarajaus.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

frmLaskulistarajaus::frmLaskulistarajaus(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmLaskulistarajaus"));
    setWindowTitle(QStringLiteral("Vonari - Laskulistan rajaus"));
    auto *kehys = new QGroupBox(QStringLiteral("Tulostettavat laskut"), this);
    auto *napit = new QVBoxLayout(kehys);
    const QString nimet[] = {QStringLiteral("Kaikki laskut"), QStringLiteral("Vain jäsenlaskut"), QStringLiteral("Muut kuin jäsenlaskut")};
    for (int i = 0; i < 3; ++i) {
        auto *n = new QRadioButton(nimet[i], kehys);
        n->setObjectName(QStringLiteral("optRajaus%1").arg(i));
        napit->addWidget(n);
        optRajaus << n;
    }
    optRajaus[0]->setChecked(true);
    cSeuraava = new QPushButton(QStringLiteral("Seuraava >>"), this);
    cSeuraava->setObjectName(QStringLiteral("cSeuraava"));
    cSeuraava->setDefault(true);
    auto *asettelu = new QVBoxLayout(this);
    asettelu->addWidget(kehys);
    asettelu->addWidget(cSeuraava, 0, Qt::AlignRight);
    connect(cSeuraava, &QPushButton::clicked, this, &QDialog::accept);
}

Laskurajaus frmLaskulistarajaus::valinta() const
{
    for (int i = 0; i < optRajaus.size(); ++i)
        if (optRajaus[i]->isChecked())
            return Laskurajaus(i);
    return Laskurajaus::Kaikki;
}
