#include "members/ui/Ikkunaapu.h"
#include <QVBoxLayout>
#include <QPushButton>
#include <QHBoxLayout>
#include <QFormLayout>
#include <QDialog>

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "members/Piirteet.h"
#include "platform/dialogs.h"

#include <QAction>
#include <QComboBox>
#include <QKeyEvent>
#include <QToolButton>
#include <QWidget>

namespace ikkuna {

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

void TaytaOminaisuusValinta(QComboBox *c, db::Database &db)
{
    c->clear();
    c->addItem(QStringLiteral(" - "), qlonglong(0));
    for (const ListaRivi &r : Maaritykset(db, false))
        c->addItem(r.teksti, r.id);
}

void Piippaa() { dlg::current().beep(); }

KomentoNappaimet::KomentoNappaimet(QWidget *ikkuna, const QList<QAction *> &toiminnot) : QObject(ikkuna)
{
    for (QAction *a : toiminnot)
        for (const QKeySequence &s : a->shortcuts())
            if (s.count() == 1)
                m_toiminnot.insert(s[0].toCombined(), a);
    const auto lapset = ikkuna->findChildren<QWidget *>();
    for (QWidget *w : lapset)
        if (w->focusPolicy() != Qt::NoFocus)
            w->installEventFilter(this);
}

bool KomentoNappaimet::eventFilter(QObject *kohde, QEvent *e)
{
    if (e->type() != QEvent::ShortcutOverride && e->type() != QEvent::KeyPress)
        return QObject::eventFilter(kohde, e);
    auto *k = static_cast<QKeyEvent *>(e);
    QAction *a = m_toiminnot.value(k->keyCombination().toCombined());
    if (!a || !a->isEnabled())
        return QObject::eventFilter(kohde, e);
    // Claim the key from the shortcut map as the box would, and run the command when it arrives.
    if (e->type() == QEvent::ShortcutOverride) {
        e->accept();
        return true;
    }
    a->trigger();
    return true;
}

KahdenOminaisuudenLomake RakennaKahdenOminaisuudenLomake(QDialog *d, const Valinta &eka, const Valinta &toka,
                                                         const Valinta &toiminto)
{
    KahdenOminaisuudenLomake l;
    l.eka = new QComboBox(d);
    l.eka->setObjectName(QString::fromUtf8(eka.nimi));
    l.toka = new QComboBox(d);
    l.toka->setObjectName(QString::fromUtf8(toka.nimi));
    for (QComboBox *c : {l.eka, l.toka})
        c->setMinimumWidth(260);
    l.toiminto = new QPushButton(toiminto.otsikko, d);
    l.toiminto->setObjectName(QString::fromUtf8(toiminto.nimi));
    l.peru = new QPushButton(QStringLiteral("Peru"), d);
    l.peru->setObjectName(QStringLiteral("cUndo"));

    auto *f = new QFormLayout;
    f->addRow(eka.otsikko, l.eka);
    f->addRow(toka.otsikko, l.toka);
    f->setVerticalSpacing(10);
    auto *napit = new QHBoxLayout;
    napit->addStretch(1);
    napit->addWidget(l.toiminto);
    napit->addWidget(l.peru);
    auto *v = new QVBoxLayout(d);
    v->setContentsMargins(16, 16, 16, 12);
    v->addLayout(f);
    v->addStretch(1);
    v->addSpacing(16);
    v->addLayout(napit);
    d->resize(d->sizeHint().width() + 40, d->sizeHint().height() + 24);

    QObject::connect(l.peru, &QPushButton::clicked, d, &QDialog::reject);
    Suojattu([&l] {
        auto kanta = AvaaKanta();
        TaytaOminaisuusValinta(l.eka, *kanta);
        TaytaOminaisuusValinta(l.toka, *kanta);
    });
    return l;
}

QToolButton *KomentoPainike(QWidget *ikkuna, QList<QAction *> &komennot, const char *nimi, const QString &teksti,
                            const QString &vihje, const QKeySequence &nappain, std::function<void()> toiminto)
{
    auto *a = new QAction(teksti, ikkuna);
    a->setToolTip(vihje);
    a->setShortcut(nappain);
    ikkuna->addAction(a);
    QObject::connect(a, &QAction::triggered, ikkuna, std::move(toiminto));
    komennot << a;
    auto *b = new QToolButton(ikkuna);
    b->setObjectName(QString::fromUtf8(nimi));
    b->setDefaultAction(a);
    b->setToolButtonStyle(Qt::ToolButtonTextOnly);
    b->setMinimumWidth(64);
    return b;
}

} // namespace ikkuna
