#include "members/ui/KoodilistaIkkuna.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/ui/uihelpers.h"
#include "members/Koodilistat.h"
#include "core/ui/Tietueikkuna.h"
#include "platform/dialogs.h"

#include <QAction>
#include <QCloseEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

KoodilistaIkkuna::KoodilistaIkkuna(QWidget *parent, const char *nimi, const Tekstit &tekstit, cKoodirivi *olio)
    : QWidget(parent, Qt::Window), curMainObject(olio), m_poistokysymys(tekstit.poistokysymys), m_juuri(tekstit.juuri)
{
    setObjectName(QLatin1String(nimi));
    setWindowTitle(MainModule::AppName + QStringLiteral(" - ") + tekstit.otsikko);
    curMainObject->setParent(this);
    rakenna(tekstit);
    connect(curMainObject, &cKoodirivi::Changed, this, [this] {
        cTallenna->setEnabled(true);
        cPeru->setEnabled(true);
    });
    connect(curMainObject, &cKoodirivi::NameChanged, this, &KoodilistaIkkuna::paivitaSolmu);
}

KoodilistaIkkuna::~KoodilistaIkkuna() = default;

QToolButton *KoodilistaIkkuna::komento(const char *nimi, const QString &teksti, const QString &vihje, const QKeySequence &nappain,
                                       std::function<void()> toiminto)
{
    return tietue::KomentoPainike(this, m_komennot, nimi, teksti, vihje, nappain, std::move(toiminto));
}

void KoodilistaIkkuna::rakenna(const Tekstit &t)
{
    cUusi = komento("cUusi", QStringLiteral("Uusi"), QStringLiteral("Tee uusi ominaisuus [F2]"), Qt::Key_F2, [this] { uusi(); });
    cTallenna = komento("cTallenna", QStringLiteral("Tallenna"), t.vihjeTallenna, Qt::Key_F3, [this] { tallenna(); });
    cPoista = komento("cPoista", QStringLiteral("Poista"), t.vihjePoista, Qt::Key_F4, [this] { poista(); });
    cSelaa = komento("cSelaa", QStringLiteral("Selaa"), t.vihjeSelaa, Qt::Key_F5, [this] { tvwLista->setFocus(); });
    cPeru = komento("cPeru", QStringLiteral("Peru"), QStringLiteral("Peru tekemäsi muutokset [Ctrl+Z]"),
                    QKeySequence(Qt::CTRL | Qt::Key_Z), [this] { peru(); });
    const auto siirrot = tietue::SiirtoPainikkeet(this, m_komennot, [this](tietue::Siirto s) { siirry(s); });
    cEnsimmainen = siirrot[0];
    cEdellinen = siirrot[1];
    cSeuraava = siirrot[2];
    cViimeinen = siirrot[3];
    cSulje = komento("cSulje", QStringLiteral("Sulje"), t.vihjeSulje, QKeySequence(Qt::ALT | Qt::Key_F4), [this] { close(); });

    tvwLista = new QTreeWidget(this);
    tvwLista->setObjectName(QStringLiteral("tvwLista"));
    tvwLista->setHeaderHidden(true);
    tvwLista->setRootIsDecorated(false);
    tvwLista->setUniformRowHeights(true);
    tvwLista->setMinimumWidth(240);
    // Queued, so that the tree has finished its own change before a store rebuilds it.
    connect(tvwLista, &QTreeWidget::currentItemChanged, this, [this] { puustaValittu(tvwLista->currentItem()); },
            Qt::QueuedConnection);

    QHBoxLayout *komennot = tietue::KomentoRivi({cUusi, cTallenna, cPoista, cSelaa, cPeru},
                                              {cEnsimmainen, cEdellinen, cSeuraava, cViimeinen}, cSulje);

    m_kentat = new QFormLayout;
    m_kentat->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    auto *oikea = new QVBoxLayout;
    oikea->addLayout(m_kentat);
    oikea->addStretch(1);
    auto *keski = new QHBoxLayout;
    keski->addWidget(tvwLista, 2);
    keski->addSpacing(8);
    keski->addLayout(oikea, 3);

    auto *ylin = new QVBoxLayout(this);
    ylin->addLayout(komennot);
    ylin->addLayout(keski, 1);
    resize(640, 380);
    new tietue::EditorinNappaimet(this);
}

QLineEdit *KoodilistaIkkuna::kentta(const char *nimi, const QString &otsikko, int leveys,
                                    std::function<void(const QString &)> kirjoita)
{
    auto *t = new QLineEdit(this);
    t->setObjectName(QLatin1String(nimi));
    if (leveys > 0)
        t->setMaxLength(leveys);
    // A short code (a postal code) gets a box of its own size rather than the whole width.
    if (leveys > 0 && leveys <= 10)
        t->setMaximumWidth(t->fontMetrics().horizontalAdvance(QString(leveys + 2, QLatin1Char('0'))) + 16);
    connect(t, &QLineEdit::textChanged, this, [this, kirjoita](const QString &s) {
        if (!m_naytetaan)
            kirjoita(s);
    });
    m_kentat->addRow(otsikko, t);
    return t;
}

bool KoodilistaIkkuna::lataa()
{
    if (!tietue::TietokantaAsetettu())
        return false;
    curMainObject->setTietokanta(MainModule::DatabasePath);
    return tietue::Suojattu([this] {
        curMainObject->GetFirst();
        rakennaPuu();
        nayta();
    });
}

void KoodilistaIkkuna::rakennaPuu()
{
    m_naytetaan = true;
    QVector<QPair<QVariant, QString>> rivit;
    for (const KoodilistanRivi &r : curMainObject->Luettelo())
        rivit.append({r.avain, r.teksti});
    tietue::TaytaLuettelo(tvwLista, rivit, m_juuri);
    tvwLista->setRootIsDecorated(!m_juuri.isEmpty());
    m_naytetaan = false;
}

void KoodilistaIkkuna::nayta()
{
    m_naytetaan = true;
    naytaKentat();
    const bool tallennettu = curMainObject->Id() != 0;
    tietue::NaytaLuettelossa(tvwLista, tallennettu ? curMainObject->Avain() : QVariant());
    cTallenna->setEnabled(curMainObject->Muuttunut());
    cPeru->setEnabled(curMainObject->Muuttunut());
    cPoista->setEnabled(tallennettu);
    m_naytetaan = false;
}

void KoodilistaIkkuna::paivitaSolmu()
{
    if (curMainObject->Id() == 0)
        return;
    if (QTreeWidgetItem *s = tietue::LuettelonSolmu(tvwLista, curMainObject->Avain()))
        s->setText(0, curMainObject->Teksti());
}

bool KoodilistaIkkuna::tallennaKesken()
{
    if (!curMainObject->Muuttunut())
        return true;
    if (!tietue::Suojattu([this] { curMainObject->Save(); }))
        return false;
    rakennaPuu();
    return true;
}

void KoodilistaIkkuna::uusi()
{
    if (!tallennaKesken())
        return;
    curMainObject->Uusi();
    nayta();
    if (QLayoutItem *eka = m_kentat->itemAt(0, QFormLayout::FieldRole))
        eka->widget()->setFocus();
}

void KoodilistaIkkuna::tallenna()
{
    curMainObject->Save();
    rakennaPuu();
    nayta();
}

void KoodilistaIkkuna::peru()
{
    if (curMainObject->Id() == 0 || !curMainObject->LueAvaimella(curMainObject->Avain()))
        curMainObject->Tyhjenna();
    nayta();
}

void KoodilistaIkkuna::siirry(tietue::Siirto s)
{
    if (!tallennaKesken())
        return;
    using S = tietue::Siirto;
    bool loytyi = false;
    switch (s) {
    case S::Ensimmainen: loytyi = curMainObject->GetFirst(); break;
    case S::Edellinen: loytyi = curMainObject->GetPrevious(); break;
    case S::Seuraava: loytyi = curMainObject->GetNext(); break;
    case S::Viimeinen: loytyi = curMainObject->GetLast(); break;
    }
    if (loytyi)
        nayta();
    else
        dlg::current().beep();
}

void KoodilistaIkkuna::puustaValittu(QTreeWidgetItem *s)
{
    if (m_naytetaan || !s)
        return;
    const QVariant avain = s->data(0, Qt::UserRole);
    if (!avain.isValid())
        return; // the root

    if (curMainObject->Id() != 0 && avain.toString() == curMainObject->Avain().toString())
        return; // the shown row's own node
    tietue::Suojattu([this, avain] {
        if (!tallennaKesken()) {
            nayta();
            return;
        }
        curMainObject->LueAvaimella(avain);
        nayta();
    });
}

void KoodilistaIkkuna::poista()
{
    if (curMainObject->Id() == 0 || !Kysy(m_poistokysymys))
        return;
    cMouseCursor odota;
    odota.SetCursor(this, Qt::WaitCursor);
    const QVariant avain = curMainObject->Avain();
    curMainObject->Delete();
    delete tietue::LuettelonSolmu(tvwLista, avain);
    if (!curMainObject->GetNext() && !curMainObject->GetPrevious())
        curMainObject->Uusi();
    nayta();
}

void KoodilistaIkkuna::closeEvent(QCloseEvent *e)
{
    if (tallennaKesken())
        e->accept();
    else
        e->ignore();
}
