#include "core/ui/frmAboutNorvik.h"

#include "core/MainModule.h"
#include "core/ui/Kuvakkeet.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace MainModule;

frmAboutNorvik::frmAboutNorvik(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAboutNorvik"));
    setWindowTitle(QStringLiteral("Tietoja - ") + AppName);

    auto *kuva = new QLabel(this);
    kuva->setPixmap(Kuvakkeet::tunnus(64));
    kuva->setAlignment(Qt::AlignTop | Qt::AlignHCenter);

    lblProductName = new QLabel(AppName, this);
    lblProductName->setObjectName(QStringLiteral("lblProductName"));
    QFont iso = lblProductName->font();
    iso.setPointSizeF(iso.pointSizeF() * 1.8);
    iso.setBold(true);
    lblProductName->setFont(iso);

    auto *kuvaus = new QLabel(QStringLiteral("Yhdistyksen jäsenrekisteri ja laskutus"), this);
    lblVersion = new QLabel(QStringLiteral("Versio ") + versionText(), this);
    lblVersion->setObjectName(QStringLiteral("lblVersion"));

    auto *viiva = new QFrame(this);
    viiva->setFrameShape(QFrame::HLine);
    viiva->setFrameShadow(QFrame::Sunken);

    lblRegName = new QLabel(QStringLiteral("Rekisteröity käyttäjä: ")
                                + (RegName.isEmpty() ? QStringLiteral("(ei annettu)") : RegName),
                            this);
    lblRegName->setObjectName(QStringLiteral("lblRegName"));
    lblRegName->setTextInteractionFlags(Qt::TextSelectableByMouse);

    lblLinkki = new QLabel(QStringLiteral("Lisätietoja: <a href=\"https://www.vonari.fi\">www.vonari.fi</a>"), this);
    lblLinkki->setObjectName(QStringLiteral("lblLinkki"));
    lblLinkki->setTextFormat(Qt::RichText);
    lblLinkki->setOpenExternalLinks(true);

    cSulje = new QPushButton(QStringLiteral("Sulje"), this);
    cSulje->setObjectName(QStringLiteral("cSulje"));
    cSulje->setDefault(true);
    connect(cSulje, &QPushButton::clicked, this, &QDialog::accept);

    auto *tekstit = new QVBoxLayout;
    tekstit->setSpacing(4);
    tekstit->addWidget(lblProductName);
    tekstit->addWidget(kuvaus);
    tekstit->addWidget(lblVersion);
    tekstit->addSpacing(6);
    tekstit->addWidget(viiva);
    tekstit->addSpacing(6);
    tekstit->addWidget(lblRegName);
    tekstit->addWidget(lblLinkki);

    auto *ylaosa = new QHBoxLayout;
    ylaosa->setSpacing(18);
    ylaosa->addWidget(kuva);
    ylaosa->addLayout(tekstit, 1);

    auto *napit = new QHBoxLayout;
    napit->addStretch();
    napit->addWidget(cSulje);

    auto *paa = new QVBoxLayout(this);
    paa->setContentsMargins(18, 18, 18, 14);
    paa->addLayout(ylaosa);
    paa->addSpacing(12);
    paa->addLayout(napit);
    setMinimumWidth(380);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}
