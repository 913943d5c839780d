#include "invoicing/ui/frmMaksujenLuonti.h"

#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "core/ui/Tietueikkuna.h"
#include "invoicing/LaskupohjaKaytto.h"
#include "invoicing/ui/frmPROMaksujenLuonti.h"
#include "platform/currency.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>

frmMaksujenLuonti::frmMaksujenLuonti(QWidget *parent)
    : frmMaksujenLuonti(parent, {"frmMaksujenLuonti", QStringLiteral("Laskutus"), Laskuikkuna::Perus,
                                 QStringLiteral("Laskutettavat:")})
{
    rakenna();
    // The sales-type run stands beside this one.
    QAction *pro = new QAction(QStringLiteral("Laskutus myyntilajeittain"), this);
    pro->setObjectName(QStringLiteral("mMyyntilajeittain"));
    mLaskut->insertAction(mLaskut->actions().value(mLaskut->actions().size() - 2), pro);
    connect(pro, &QAction::triggered, this, [this] { tietue::Suojattu([this] { AvaaLaskutusPro(parentWidget()); }); });
    resize(940, 560);
}

frmMaksujenLuonti::frmMaksujenLuonti(QWidget *parent, Asetelma asetelma) : Laskutusikkuna(parent, std::move(asetelma)) {}

QWidget *frmMaksujenLuonti::rakennaRivit()
{
    auto *ryhma = new QGroupBox(QStringLiteral("Laskurivit"), this);
    auto *g = m_rivit = new QGridLayout(ryhma);
    g->addWidget(new QLabel(QStringLiteral("Aiheteksti"), ryhma), 0, 1);
    g->addWidget(new QLabel(QStringLiteral("Hinta"), ryhma), 0, 2);
    for (int i = 0; i < 4; ++i) {
        chkRivi[i] = new QCheckBox(QStringLiteral("Laskurivi %1:").arg(i + 1), ryhma);
        chkRivi[i]->setObjectName(QStringLiteral("chkRivi%1").arg(i));
        tRiviTeksti[i] = new QLineEdit(ryhma);
        tRiviTeksti[i]->setObjectName(QStringLiteral("tRiviTeksti%1").arg(i));
        tRiviTeksti[i]->setMaxLength(255);
        tRiviSumma[i] = new QLineEdit(ryhma);
        tRiviSumma[i]->setObjectName(QStringLiteral("tRiviSumma%1").arg(i));
        tRiviSumma[i]->setMaxLength(20);
        tRiviSumma[i]->setAlignment(Qt::AlignRight);
        tRiviSumma[i]->setMaximumWidth(110);
        g->addWidget(chkRivi[i], i + 1, 0);
        g->addWidget(tRiviTeksti[i], i + 1, 1);
        g->addWidget(tRiviSumma[i], i + 1, 2);
        connect(chkRivi[i], &QCheckBox::toggled, this, [this, i] {
            riviValittu(i);
            paivitaSumma();
        });
        connect(tRiviSumma[i], &QLineEdit::textChanged, this, &frmMaksujenLuonti::paivitaSumma);
    }
    tSumma = new QLineEdit(ryhma);
    tSumma->setObjectName(QStringLiteral("tSumma"));
    tSumma->setMaxLength(20);
    tSumma->setAlignment(Qt::AlignRight);
    tSumma->setMaximumWidth(110);
    g->addWidget(new QLabel(QStringLiteral("Loppusumma:"), ryhma), 5, 1, Qt::AlignRight);
    g->addWidget(tSumma, 5, 2);
    g->setColumnStretch(1, 1);
    g->setRowStretch(6, 1);
    connect(tSumma, &QLineEdit::editingFinished, this, [this] {
        if (!tSumma->text().isEmpty() && !Currency::parse(tSumma->text()))
            Ilmoita(QStringLiteral("Syötetyn summan muoto ei ole kelvollinen."));
    });
    return ryhma;
}

void frmMaksujenLuonti::lataaRivit(db::Database &)
{
    for (int i = 0; i < 4; ++i)
        riviValittu(i);
    paivitaSumma();
}

MaksujenLuontiLomake frmMaksujenLuonti::lomake() const
{
    MaksujenLuontiLomake l;
    static_cast<LaskunYlatiedot &>(l) = ylatiedot();
    for (int i = 0; i < 4; ++i)
        l.rivit[i] = {chkRivi[i]->isChecked(), tRiviTeksti[i]->text(), tRiviSumma[i]->text()};
    l.tSumma = tSumma->text();
    l.saajat = saajat();
    return l;
}

void frmMaksujenLuonti::kaytaPohjaa(int indeksi)
{
    MaksujenLuontiLomake l = lomake();
    if (!KaytaValittuaLaskupohjaa(MainModule::DatabasePath, indeksi, l))
        return;
    kirjoitaYlatiedot(l);
    for (int i = 0; i < 4; ++i) {
        chkRivi[i]->setChecked(l.rivit[i].chkRivi);
        tRiviTeksti[i]->setText(l.rivit[i].tRiviTeksti);
        tRiviSumma[i]->setText(l.rivit[i].tRiviSumma);
    }
    paivitaSumma();
}

Laskutustulos frmMaksujenLuonti::aja(const Ajo &ajo, bool jasenikkunaAuki)
{
    return LisaaJasenmaksut(ajo, lomake(), jasenikkunaAuki);
}

void frmMaksujenLuonti::paivitaSumma()
{
    std::array<PerusLaskurivi, 4> rivit;
    for (int i = 0; i < 4; ++i)
        rivit[i] = {chkRivi[i]->isChecked(), QString(), tRiviSumma[i]->text()};
    tSumma->setText(RivienLoppusumma(rivit));
}

void frmMaksujenLuonti::riviValittu(int i)
{
    const bool paalla = chkRivi[i]->isChecked();
    for (QLineEdit *t : {tRiviTeksti[i], tRiviSumma[i]}) {
        if (!paalla)
            t->clear();
        t->setEnabled(paalla);
    }
}

void AvaaLaskutus(QWidget *parent)
{
    static QPointer<QWidget> auki;
    tietue::AvaaKerran(auki, [parent]() -> QWidget * {
        auto w = std::make_unique<frmMaksujenLuonti>(parent);
        return w->Lataa() ? w.release() : nullptr;
    });
}
