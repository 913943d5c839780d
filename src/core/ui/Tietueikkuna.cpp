#include "core/ui/Tietueikkuna.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "platform/dialogs.h"
#include "platform/recordset.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeWidget>

namespace tietue {

bool TietokantaAsetettu()
{
    const QString polku = MainModule::DatabasePath.trimmed();
    if (polku.isEmpty() || polku.compare(QLatin1String("unknown"), Qt::CaseInsensitive) == 0) {
        Ilmoita(QStringLiteral("Tarkista tietokanta asetukset asetusikkunasta!"));
        return false;
    }
    return true;
}

std::unique_ptr<db::Database> AvaaKanta() { return db::Database::open(MainModule::DatabasePath); }

void NaytaVirhe(const QString &teksti) { IlmoitaVirhe(teksti); }

const std::array<SiirtoKomento, 4> &SiirtoKomennot()
{
    static const std::array<SiirtoKomento, 4> komennot{{
        {Siirto::Ensimmainen, "cEnsimmäinen", "mEnsimmainen", QStringLiteral("E&nsimmäinen"), QStringLiteral("|◀"),
         QStringLiteral("Siirry ensimmäiseen [Ctrl+A]"), QKeySequence(Qt::CTRL | Qt::Key_A), QStyle::SP_MediaSkipBackward},
        {Siirto::Edellinen, "cEdellinen", "mEdellinen", QStringLiteral("E&dellinen"), QStringLiteral("◀"),
         QStringLiteral("Siirry edelliseen [Ctrl+S]"), QKeySequence(Qt::CTRL | Qt::Key_S), QStyle::SP_MediaSeekBackward},
        {Siirto::Seuraava, "cSeuraava", "mSeuraava", QStringLiteral("Seu&raava"), QStringLiteral("▶"),
         QStringLiteral("Siirry seuraavaan [Ctrl+D]"), QKeySequence(Qt::CTRL | Qt::Key_D), QStyle::SP_MediaSeekForward},
        // The tip of the last says "seuraavaan", as it always has.
        {Siirto::Viimeinen, "cViimeinen", "mViimeinen", QStringLiteral("&Viimeinen"), QStringLiteral("▶|"),
         QStringLiteral("Siirry seuraavaan [Ctrl+V]"), QKeySequence(Qt::CTRL | Qt::Key_V), QStyle::SP_MediaSkipForward},
    }};
    return komennot;
}

QToolButton *KomentoPainike(QWidget *ikkuna, QList<QAction *> &komennot, const char *nimi, const QString &teksti,
                            const QString &vihje, const QKeySequence &nappain, std::function<void()> toiminto)
{
    auto *a = new QAction(teksti, ikkuna);
    a->setToolTip(vihje);
    a->setShortcut(nappain);
    ikkuna->addAction(a);
    QObject::connect(a, &QAction::triggered, ikkuna, [toiminto = std::move(toiminto)] { Suojattu(toiminto); });
    komennot << a;
    auto *b = new QToolButton(ikkuna);
    b->setObjectName(QString::fromUtf8(nimi));
    b->setDefaultAction(a);
    b->setToolButtonStyle(Qt::ToolButtonTextOnly);
    b->setMinimumWidth(64);
    return b;
}

void TaytaLuettelo(QTreeWidget *puu, const QVector<QPair<QVariant, QString>> &rivit, const QString &juuri)
{
    puu->clear();
    QList<QTreeWidgetItem *> solmut;
    solmut.reserve(rivit.size());
    for (const auto &[avain, teksti] : rivit) {
        auto *s = new QTreeWidgetItem(QStringList{teksti});
        s->setData(0, Qt::UserRole, avain);
        solmut << s;
    }
    if (juuri.isEmpty()) {
        puu->addTopLevelItems(solmut);
        return;
    }
    auto *j = new QTreeWidgetItem(puu, QStringList{juuri});
    j->addChildren(solmut);
    j->setExpanded(true);
}

QTreeWidgetItem *LuettelonSolmu(const QTreeWidget *puu, const QVariant &avain)
{
    if (!avain.isValid())
        return nullptr;
    // As text: a postal code "00100" is not "100".
    const QString haettu = avain.toString();
    for (int i = 0; i < puu->topLevelItemCount(); ++i) {
        QTreeWidgetItem *t = puu->topLevelItem(i);
        if (t->data(0, Qt::UserRole).toString() == haettu && t->data(0, Qt::UserRole).isValid())
            return t;
        for (int j = 0; j < t->childCount(); ++j) // the rows under a list's root
            if (t->child(j)->data(0, Qt::UserRole).toString() == haettu)
                return t->child(j);
    }
    return nullptr;
}

void NaytaLuettelossa(QTreeWidget *puu, const QVariant &avain)
{
    QTreeWidgetItem *s = LuettelonSolmu(puu, avain);
    puu->setCurrentItem(s);
    if (s)
        puu->scrollToItem(s);
    else
        puu->clearSelection();
}

QHBoxLayout *KomentoRivi(std::initializer_list<QToolButton *> komennot, std::initializer_list<QToolButton *> siirrot,
                         QToolButton *sulje)
{
    auto *rivi = new QHBoxLayout;
    for (QToolButton *b : komennot)
        rivi->addWidget(b);
    rivi->addSpacing(12);
    for (QToolButton *b : siirrot)
        rivi->addWidget(b);
    rivi->addStretch(1);
    rivi->addWidget(sulje);
    return rivi;
}

std::array<QToolButton *, 4> SiirtoPainikkeet(QWidget *ikkuna, QList<QAction *> &komennot,
                                              const std::function<void(Siirto)> &siirry)
{
    std::array<QToolButton *, 4> napit{};
    for (size_t i = 0; i < napit.size(); ++i) {
        const SiirtoKomento &k = SiirtoKomennot()[i];
        QToolButton *b = KomentoPainike(ikkuna, komennot, k.painike, QString(k.teksti).remove(QLatin1Char('&')), k.vihje,
                                        k.nappain, [siirry, s = k.siirto] { siirry(s); });
        b->defaultAction()->setIcon(ikkuna->style()->standardIcon(k.kuva));
        b->setToolButtonStyle(Qt::ToolButtonIconOnly);
        b->setMinimumWidth(32);
        napit[i] = b;
    }
    return napit;
}

void Siirry(db::Recordset &rs, Siirto s)
{
    if (rs.recordCount() == 0) {
        if (s == Siirto::Edellinen || s == Siirto::Seuraava)
            dlg::current().beep();
        return;
    }
    switch (s) {
    case Siirto::Ensimmainen: rs.moveFirst(); break;
    case Siirto::Viimeinen: rs.moveLast(); break;
    case Siirto::Seuraava:
        if (!rs.eof())
            rs.moveNext();
        if (rs.eof()) {
            rs.moveLast();
            dlg::current().beep();
        }
        break;
    case Siirto::Edellinen:
        if (!rs.bof())
            rs.movePrevious();
        if (rs.bof()) {
            rs.moveFirst();
            dlg::current().beep();
        }
        break;
    }
}

void AvaaKerran(QPointer<QWidget> &auki, const std::function<QWidget *()> &luo)
{
    if (!auki) {
        QWidget *w = luo();
        if (!w)
            return;
        w->setAttribute(Qt::WA_DeleteOnClose);
        auki = w;
    }
    if (auki->isMinimized())
        auki->showNormal();
    else
        auki->show();
    auki->raise();
    auki->activateWindow();
}

void SuljeKysyen(bool muuttunut, const std::function<void()> &tallenna, const std::function<void()> &sulje)
{
    if (muuttunut && Kysy(QStringLiteral("Asetuksiin on tehty muutoksia, tallennetaanko muutokset?"))) {
        tallenna();
        return;
    }
    sulje();
}

namespace {

bool onIkkuna(const QWidget *w)
{
    const Qt::WindowType t = w->windowType();
    return w->isVisible() && t != Qt::Popup && t != Qt::ToolTip && t != Qt::Desktop && t != Qt::SplashScreen;
}

} // namespace

bool SuljeMuut(QWidget *paaikkuna)
{
    // A modal window sits on the others' commands: it goes first, the newest first.
    while (QWidget *m = QApplication::activeModalWidget()) {
        if (m == paaikkuna || !m->close())
            return false;
        if (QApplication::activeModalWidget() == m)
            return false;
    }
    QList<QPointer<QWidget>> muut;
    for (QWidget *w : QApplication::topLevelWidgets())
        if (w != paaikkuna && onIkkuna(w))
            muut << w;
    for (const QPointer<QWidget> &w : std::as_const(muut))
        if (w && w->isVisible() && !w->close())
            return false;
    return true;
}

EditorinNappaimet::EditorinNappaimet(QWidget *ikkuna) : QObject(ikkuna), m_ikkuna(ikkuna)
{
    qApp->installEventFilter(this);
}

namespace {

bool onEditori(QObject *o)
{
    if (qobject_cast<QLineEdit *>(o) || qobject_cast<QPlainTextEdit *>(o) || qobject_cast<QAbstractSpinBox *>(o))
        return true;
    if (auto *t = qobject_cast<QTextEdit *>(o))
        return !t->isReadOnly();
    if (auto *c = qobject_cast<QComboBox *>(o))
        return c->isEditable();
    return false;
}

bool onMuokkausnappain(const QKeyEvent *k)
{
    for (QKeySequence::StandardKey s : {QKeySequence::Copy, QKeySequence::Paste, QKeySequence::Cut, QKeySequence::Undo,
                                        QKeySequence::Redo, QKeySequence::SelectAll})
        if (k->matches(s))
            return true;
    return false;
}

} // namespace

bool EditorinNappaimet::eventFilter(QObject *kohde, QEvent *e)
{
    if (e->type() != QEvent::ShortcutOverride || !kohde->isWidgetType())
        return false;
    auto *w = static_cast<QWidget *>(kohde);
    if (w->window() != m_ikkuna || !onEditori(w) || !onMuokkausnappain(static_cast<QKeyEvent *>(e)))
        return false;
    // Accepting the override keeps the key from the shortcuts and hands it to the box.
    e->accept();
    return true;
}

} // namespace tietue
