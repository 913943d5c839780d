#include "invoicing/ui/frmPROMaksujenLuonti.h"

#include "core/ui/Tietueikkuna.h"
#include "invoicing/Laskutuslistat.h"
#include "members/ui/frmPROMyyntilajit.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QPointer>

frmPROMaksujenLuonti::frmPROMaksujenLuonti(QWidget *parent)
    : frmMaksujenLuonti(parent, {"frmPROMaksujenLuonti", QStringLiteral("Laskutus Pro"), Laskuikkuna::Myyntilaji,
                                 QStringLiteral("Laskutettavat:"), true, false, false})
{
    rakenna();
    mLaskut->addSeparator();
    QAction *myyntilajit = mLaskut->addAction(QStringLiteral("Myyntilajit"));
    myyntilajit->setObjectName(QStringLiteral("mMyyntilajit"));
    connect(myyntilajit, &QAction::triggered, this, [this] { tietue::Suojattu([this] { AvaaMyyntilajit(this); }); });
    resize(1040, 560);
}

QWidget *frmPROMaksujenLuonti::rakennaRivit()
{
    QWidget *ryhma = frmMaksujenLuonti::rakennaRivit();
    m_rivit->addWidget(new QLabel(QStringLiteral("Myyntilaji"), ryhma), 0, 3);
    for (int i = 0; i < 4; ++i) {
        cmbMyyntiLaji[i] = new QComboBox(ryhma);
        cmbMyyntiLaji[i]->setObjectName(QStringLiteral("cmbMyyntiLaji%1").arg(i));
        cmbMyyntiLaji[i]->setMinimumContentsLength(16);
        cmbMyyntiLaji[i]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        m_rivit->addWidget(cmbMyyntiLaji[i], i + 1, 3);
    }
    return ryhma;
}

void frmPROMaksujenLuonti::lataaRivit(db::Database &d)
{
    frmMaksujenLuonti::lataaRivit(d);
    taytaMyyntilajit(d);
}

bool frmPROMaksujenLuonti::event(QEvent *e)
{
    if (e->type() == QEvent::WindowActivate && isVisible()) {
        try {
            taytaMyyntilajit(*tietue::AvaaKanta());
        } catch (const std::exception &) {
            // The lists stay as they were; the next command that needs the database tells why.
        }
    }
    return frmMaksujenLuonti::event(e);
}

void frmPROMaksujenLuonti::taytaMyyntilajit(db::Database &d)
{
    const QVector<ListaRivi> valinnat = MyyntilajiValinnat(d);
    for (QComboBox *c : cmbMyyntiLaji) {
        const qint64 valittu = c->currentData().toLongLong();
        c->clear();
        for (const ListaRivi &r : valinnat)
            c->addItem(r.teksti, r.id);
        c->setCurrentIndex(std::max(0, c->findData(valittu)));
    }
}

ProMaksujenLuontiLomake frmPROMaksujenLuonti::proLomake() const
{
    ProMaksujenLuontiLomake l;
    static_cast<MaksujenLuontiLomake &>(l) = lomake();
    for (int i = 0; i < 4; ++i)
        l.cmbMyyntiLaji[i] = cmbMyyntiLaji[i]->currentData().toLongLong();
    return l;
}

Laskutustulos frmPROMaksujenLuonti::aja(const Ajo &ajo, bool)
{
    return LisaaMyyntilajeittain(ajo, proLomake());
}

void AvaaLaskutusPro(QWidget *parent)
{
    static QPointer<QWidget> auki;
    tietue::AvaaKerran(auki, [parent]() -> QWidget * {
        auto w = std::make_unique<frmPROMaksujenLuonti>(parent);
        return w->Lataa() ? w.release() : nullptr;
    });
}
