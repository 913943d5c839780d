#include "invoicing/ui/frmLaskumalli.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

QGroupBox *kehys(QWidget *parent, const QString &otsikko, const QStringList &nimet, const QString &nimi,
                 QVector<QRadioButton *> &napit, int valittu)
{
    auto *k = new QGroupBox(otsikko, parent);
    auto *asettelu = new QVBoxLayout(k);
    for (int i = 0; i < nimet.size(); ++i) {
        auto *n = new QRadioButton(nimet[i], k);
        n->setObjectName(QStringLiteral("%1%2").arg(nimi).arg(i));
        asettelu->addWidget(n);
        napit << n;
    }
    napit[valittu]->setChecked(true);
    return k;
}

} // namespace

frmLaskumalli::frmLaskumalli(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmLaskumalli"));
    setWindowTitle(QStringLiteral("Vonari - Laskumalli"));
    auto *mallit = kehys(this, QStringLiteral("Laskumalli"),
                         {QStringLiteral("Tilisiirto"), QStringLiteral("Yleislasku"), QStringLiteral("Jäsenkortti")},
                         QStringLiteral("optLaskumalli"), optLaskumalli, int(MuistettuLaskumalli().malli));
    auto *kielet = kehys(this, QStringLiteral("Kieli"), {QStringLiteral("Suomeksi"), QStringLiteral("Kaksikielinen")},
                         QStringLiteral("optKieli"), optKieli, MuistettuLaskumalli().kaksikielinen ? 1 : 0);
    cSeuraava = new QPushButton(QStringLiteral("Seuraava >>"), this);
    cSeuraava->setObjectName(QStringLiteral("cSeuraava"));
    cSeuraava->setDefault(true);
    auto *kehykset = new QHBoxLayout;
    kehykset->addWidget(mallit);
    kehykset->addWidget(kielet, 0, Qt::AlignTop);
    auto *asettelu = new QVBoxLayout(this);
    asettelu->addLayout(kehykset);
    asettelu->addWidget(cSeuraava, 0, Qt::AlignRight);
    connect(cSeuraava, &QPushButton::clicked, this, &frmLaskumalli::cSeuraava_Click);
}

Laskumallivalinta frmLaskumalli::valinta() const
{
    Laskumallivalinta v;
    for (int i = 0; i < optLaskumalli.size(); ++i)
        if (optLaskumalli[i]->isChecked())
            v.malli = Laskumalli(i);
    v.kaksikielinen = optKieli[1]->isChecked();
    return v;
}

void frmLaskumalli::cSeuraava_Click()
{
    MuistettuLaskumalli() = valinta();
    accept();
}

std::optional<Laskumallivalinta> KysyLaskumalli(QWidget *parent)
{
    frmLaskumalli w(parent);
    if (w.exec() != QDialog::Accepted)
        return std::nullopt;
    return w.valinta();
}
