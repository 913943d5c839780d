#include "members/ui/KoodilistaIkkuna.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/ui/uihelpers.h"
#include "members/Koodilistat.h"
#include "members/ui/Ikkunaapu.h"
#include "members/ui/Tapahtumat.h"
#include "platform/dialogs.h"

#include <QAction>
#include <QCloseEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyle>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int AvainRooli = Qt::UserRole;      // the key as the record object reads it
constexpr int SolmuRooli = Qt::UserRole + 1;  // the node key: the key followed by "ID"

QString solmuavain(const QVariant &avain) { return avain.toString() + QStringLiteral("ID"); }

} // namespace

KoodilistaIkkuna::KoodilistaIkkuna(QWidget *parent, const char *nimi, const Tekstit &tekstit, cKoodirivi *olio)
    : QWidget(parent, Qt::Window), curMainObject(olio), m_poistokysymys(tekstit.poistokysymys)
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
    return ikkuna::KomentoPainike(this, m_komennot, nimi, teksti, vihje, nappain, [toiminto] { tapahtuma::suojattu(toiminto); });
}

void KoodilistaIkkuna::rakenna(const Tekstit &t)
{
    cUusi = komento("cUusi", QStringLiteral("Uusi"), QStringLiteral("Tee uusi ominaisuus [F2]"), Qt::Key_F2, [this] { uusi(); });
    cTallenna = komento("cTallenna", QStringLiteral("Tallenna"), t.vihjeTallenna, Qt::Key_F3, [this] { tallenna(); });
    cPoista = komento("cPoista", QStringLiteral("Poista"), t.vihjePoista, Qt::Key_F4, [this] { poista(); });
    cSelaa = komento("cSelaa", QStringLiteral("Selaa"), t.vihjeSelaa, Qt::Key_F5, [this] { tvwLista->setFocus(); });
    cPeru = komento("cPeru", QStringLiteral("Peru"), QStringLiteral("Peru tekemäsi muutokset [Ctrl+Z]"),
                    QKeySequence(Qt::CTRL | Qt::Key_Z), [this] { peru(); });
    auto siirto = [this](const char *nimi, const QString &teksti, const QString &vihje, Qt::Key k, Siirto s, QStyle::StandardPixmap kuva) {
        QToolButton *b = komento(nimi, teksti, vihje, QKeySequence(Qt::CTRL | k), [this, s] { siirry(s); });
        b->defaultAction()->setIcon(style()->standardIcon(kuva));
        b->setToolButtonStyle(Qt::ToolButtonIconOnly);
        b->setMinimumWidth(32);
        return b;
    };
    cEnsimmainen = siirto("cEnsimmäinen", QStringLiteral("Ensimmäinen"), QStringLiteral("Siirry ensimmäiseen [Ctrl+A]"), Qt::Key_A,
                          Siirto::Ensimmainen, QStyle::SP_MediaSkipBackward);
    cEdellinen = siirto("cEdellinen", QStringLiteral("Edellinen"), QStringLiteral("Siirry edelliseen [Ctrl+S]"), Qt::Key_S,
                        Siirto::Edellinen, QStyle::SP_MediaSeekBackward);
    cSeuraava = siirto("cSeuraava", QStringLiteral("Seuraava"), QStringLiteral("Siirry seuraavaan [Ctrl+D]"), Qt::Key_D,
                       Siirto::Seuraava, QStyle::SP_MediaSeekForward);
    cViimeinen = siirto("cViimeinen", QStringLiteral("Viimeinen"), QStringLiteral("Siirry seuraavaan [Ctrl+V]"), Qt::Key_V,
                        Siirto::Viimeinen, QStyle::SP_MediaSkipForward);
    cSulje = komento("cSulje", QStringLiteral("Sulje"), t.vihjeSulje, QKeySequence(Qt::ALT | Qt::Key_F4), [this] { close(); });

    tvwLista = new QTreeWidget(this);
    tvwLista->setObjectName(QStringLiteral("tvwLista"));
    tvwLista->setHeaderHidden(true);
    tvwLista->setRootIsDecorated(false);
    tvwLista->setUniformRowHeights(true);
    tvwLista->setMinimumWidth(240);
    tvwLista->installEventFilter(this);
    // Queued, so that the tree has finished its own change before a store rebuilds it.
    connect(tvwLista, &QTreeWidget::currentItemChanged, this, [this] { puustaValittu(tvwLista->currentItem()); },
            Qt::QueuedConnection);

    auto *komennot = new QHBoxLayout;
    for (QToolButton *b : {cUusi, cTallenna, cPoista, cSelaa, cPeru})
        komennot->addWidget(b);
    komennot->addSpacing(12);
    for (QToolButton *b : {cEnsimmainen, cEdellinen, cSeuraava, cViimeinen})
        komennot->addWidget(b);
    komennot->addStretch(1);
    komennot->addWidget(cSulje);

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
    t->installEventFilter(this);
    connect(t, &QLineEdit::textChanged, this, [this, kirjoita](const QString &s) {
        if (!m_naytetaan)
            kirjoita(s);
    });
    m_kentat->addRow(otsikko, t);
    return t;
}

// The window's command keys win over the boxes' own (Ctrl+A, Ctrl+Z, Ctrl+V …), as the window's
// key preview does: a box is not let to claim a key that a command has.
bool KoodilistaIkkuna::eventFilter(QObject *kohde, QEvent *e)
{
    if (e->type() == QEvent::ShortcutOverride) {
        const auto *k = static_cast<QKeyEvent *>(e);
        const QKeySequence painallus(k->keyCombination());
        for (QAction *a : std::as_const(m_komennot))
            if (a->shortcut() == painallus)
                return true;
    }
    return QWidget::eventFilter(kohde, e);
}

bool KoodilistaIkkuna::lataa()
{
    if (!tapahtuma::tietokantaAsetettu())
        return false;
    curMainObject->setTietokanta(MainModule::DatabasePath);
    return tapahtuma::suojattu([this] {
        curMainObject->GetFirst();
        rakennaPuu();
        nayta();
    });
}

QTreeWidgetItem *KoodilistaIkkuna::solmu(const QVariant &avain) const
{
    const QString haettu = solmuavain(avain);
    for (int i = 0; i < tvwLista->topLevelItemCount(); ++i)
        if (tvwLista->topLevelItem(i)->data(0, SolmuRooli).toString() == haettu)
            return tvwLista->topLevelItem(i);
    return nullptr;
}

void KoodilistaIkkuna::rakennaPuu()
{
    m_naytetaan = true;
    tvwLista->clear();
    QList<QTreeWidgetItem *> solmut;
    for (const KoodilistanRivi &r : curMainObject->Luettelo()) {
        auto *s = new QTreeWidgetItem(QStringList{r.teksti});
        s->setData(0, AvainRooli, r.avain);
        s->setData(0, SolmuRooli, solmuavain(r.avain));
        solmut << s;
    }
    tvwLista->addTopLevelItems(solmut);
    m_naytetaan = false;
}

void KoodilistaIkkuna::nayta()
{
    m_naytetaan = true;
    naytaKentat();
    const bool tallennettu = curMainObject->Id() != 0;
    QTreeWidgetItem *s = tallennettu ? solmu(curMainObject->Avain()) : nullptr;
    tvwLista->setCurrentItem(s);
    if (s)
        tvwLista->scrollToItem(s);
    else
        tvwLista->clearSelection();
    cTallenna->setEnabled(curMainObject->Muuttunut());
    cPeru->setEnabled(curMainObject->Muuttunut());
    cPoista->setEnabled(tallennettu);
    m_naytetaan = false;
}

void KoodilistaIkkuna::paivitaSolmu()
{
    if (curMainObject->Id() == 0)
        return;
    if (QTreeWidgetItem *s = solmu(curMainObject->Avain()))
        s->setText(0, curMainObject->Teksti());
}

bool KoodilistaIkkuna::tallennaKesken()
{
    if (!curMainObject->Muuttunut())
        return true;
    if (!tapahtuma::suojattu([this] { curMainObject->Save(); }))
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

void KoodilistaIkkuna::siirry(Siirto s)
{
    if (!tallennaKesken())
        return;
    bool loytyi = false;
    switch (s) {
    case Siirto::Ensimmainen: loytyi = curMainObject->GetFirst(); break;
    case Siirto::Edellinen: loytyi = curMainObject->GetPrevious(); break;
    case Siirto::Seuraava: loytyi = curMainObject->GetNext(); break;
    case Siirto::Viimeinen: loytyi = curMainObject->GetLast(); break;
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
    const QVariant avain = s->data(0, AvainRooli);
    if (curMainObject->Id() != 0 && solmuavain(avain) == solmuavain(curMainObject->Avain()))
        return; // the shown row's own node
    tapahtuma::suojattu([this, avain] {
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
    delete solmu(avain);
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
