#include "reports/jasen/ui/frmJasenkortit.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "reports/jasen/Jasenkortit.h"
#include "reports/RaporttiVirhe.h"
#include "reports/ui/frmTulostus.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

frmJasenkortit::frmJasenkortit(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmJasenkortit"));
    setWindowTitle(QStringLiteral("Vonari - Jäsenkorttien tulostus"));
    cmbNimet = new QComboBox(this);
    cmbNimet->setObjectName(QStringLiteral("cmbNimet"));
    cmbNimet->setMinimumContentsLength(30);
    auto teksti = [this](const char *nimi, const QString &arvo) {
        auto *t = new QLineEdit(arvo, this);
        t->setObjectName(QString::fromLatin1(nimi));
        t->setMaxLength(255);
        return t;
    };
    tOtsake = teksti("tOtsake", QStringLiteral("Jäsenkortti"));
    tAlateksti1 = teksti("tAlateksti1", QString());
    tAlateksti2 = teksti("tAlateksti2", QString());
    chkMuille = new QCheckBox(QStringLiteral("Muille kuin valitulla ominaisuudella rajatuille"), this);
    chkMuille->setObjectName(QStringLiteral("chkMuille"));
    cTulosta = new QPushButton(QStringLiteral("Tulosta"), this);
    cTulosta->setObjectName(QStringLiteral("cTulosta"));
    cTulosta->setToolTip(QStringLiteral("Tulosta jäsenkortit [F7]"));
    cTulosta->setDefault(true);
    cSulje = new QPushButton(QStringLiteral("Sulje"), this);
    cSulje->setObjectName(QStringLiteral("cSulje"));

    auto *lomake = new QFormLayout;
    lomake->addRow(QStringLiteral("Henkilö:"), cmbNimet);
    lomake->addRow(QStringLiteral("Kortin otsake"), tOtsake);
    lomake->addRow(QStringLiteral("Alateksti 1:"), tAlateksti1);
    lomake->addRow(QStringLiteral("Alateksti 2:"), tAlateksti2);
    lomake->addRow(chkMuille);
    auto *napit = new QHBoxLayout;
    napit->addStretch();
    napit->addWidget(cTulosta);
    napit->addWidget(cSulje);
    auto *asettelu = new QVBoxLayout(this);
    asettelu->addLayout(lomake);
    asettelu->addLayout(napit);

    connect(cTulosta, &QPushButton::clicked, this, &frmJasenkortit::cTulosta_Click);
    connect(cSulje, &QPushButton::clicked, this, &QDialog::reject);
    auto *f7 = new QShortcut(QKeySequence(Qt::Key_F7), this);
    connect(f7, &QShortcut::activated, this, &frmJasenkortit::cTulosta_Click);
    lataaNimet();
}

void frmJasenkortit::lataaNimet()
{
    try {
        auto d = db::Database::open(MainModule::DatabasePath);
        for (const KorttiHenkilo &h : KorttiHenkilot(*d))
            cmbNimet->addItem(h.teksti, h.arvo);
    } catch (const db::DbError &e) {
        IlmoitaVirhe(QStringLiteral("Henkilöitä ei voitu lukea: ") + e.message());
    }
}

void frmJasenkortit::cTulosta_Click()
{
    try {
        QString valinta;
        if (cmbNimet->currentIndex() >= 0) {
            auto d = db::Database::open(MainModule::DatabasePath);
            valinta = KorttienValinta(*d, cmbNimet->currentData().toLongLong(), chkMuille->isChecked());
        }
        if (!NaytaTulostusasetukset(false, this))
            return;
        AjaJasenkortit(valinta, {tOtsake->text(), tAlateksti1->text(), tAlateksti2->text()});
    } catch (const RaporttiVirhe &e) {
        IlmoitaVirhe(QStringLiteral("Virhe tulostettaessa raporttia: ") + e.viesti());
    } catch (const db::DbError &e) {
        IlmoitaVirhe(QStringLiteral("Virhe tulostettaessa raporttia: ") + e.message());
    }
}

void AvaaJasenkortit(QWidget *parent)
{
    frmJasenkortit w(parent);
    w.exec();
}
