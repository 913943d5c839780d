#include "members/ui/frmNimiHaku.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/Schema.h"
#include "core/ui/uihelpers.h"
#include "members/Jasenhaku.h"
#include "members/ui/HakuMalli.h"
#include "core/ui/Tietueikkuna.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

qint64 frmNimiHaku::hae(QWidget *parent)
{
    HaettuJasenID = 0;
    frmNimiHaku d(parent ? parent->window() : nullptr);
    if (!d.lataa())
        return 0;
    d.exec();
    return HaettuJasenID;
}

frmNimiHaku::frmNimiHaku(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmNimiHaku"));
    setWindowTitle(MainModule::AppName + QStringLiteral(" - Nimihaku"));

    auto rivi = [this](const char *nimi, const char *kentta) {
        auto *t = new QLineEdit(this);
        t->setObjectName(QLatin1String(nimi));
        t->setMaxLength(Schema::leveys(QStringLiteral("jr"), QLatin1String(kentta)));
        return t;
    };
    tSukunimi = rivi("tSukunimi", "jrSukunimi");
    tEtunimi = rivi("tEtunimi", "jrEtunimi");
    auto painike = [this](const char *nimi, const QString &teksti) {
        auto *b = new QPushButton(teksti, this);
        b->setObjectName(QLatin1String(nimi));
        b->setAutoDefault(false);
        return b;
    };
    cSearch = painike("cSearch", QStringLiteral("&Etsi"));
    cOpen = painike("cOpen", QStringLiteral("&Avaa"));
    cUndo = painike("cUndo", QStringLiteral("Peruuta"));

    m_loydetyt = new HakuMalli(this);
    lstFoundJR = new QListView(this);
    lstFoundJR->setObjectName(QStringLiteral("lstFoundJR"));
    lstFoundJR->setModel(m_loydetyt);
    lstFoundJR->setUniformItemSizes(true);
    lstFoundJR->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstFoundJR->setSelectionMode(QAbstractItemView::SingleSelection);
    lstFoundJR->installEventFilter(this);
    lblSearchMessage = new QLabel(this);
    lblSearchMessage->setObjectName(QStringLiteral("lblSearchMessage"));

    auto *nimet = new QGridLayout;
    auto *lSuku = new QLabel(QStringLiteral("Sukunimi:"), this);
    lSuku->setBuddy(tSukunimi);
    auto *lEtu = new QLabel(QStringLiteral("Etunimi:"), this);
    lEtu->setBuddy(tEtunimi);
    nimet->addWidget(lSuku, 0, 0);
    nimet->addWidget(tSukunimi, 0, 1);
    nimet->addWidget(lEtu, 1, 0);
    nimet->addWidget(tEtunimi, 1, 1);
    nimet->addWidget(cSearch, 1, 2);
    nimet->setColumnStretch(1, 1);

    auto *alaosa = new QHBoxLayout;
    alaosa->addWidget(lblSearchMessage, 1);
    alaosa->addWidget(cOpen);
    alaosa->addWidget(cUndo);

    auto *ylin = new QVBoxLayout(this);
    ylin->addLayout(nimet);
    ylin->addWidget(lstFoundJR, 1);
    ylin->addLayout(alaosa);
    resize(440, 380);

    auto suojaa = [this](void (frmNimiHaku::*f)()) { return [this, f] { tietue::Suojattu([this, f] { (this->*f)(); }); }; };
    connect(cSearch, &QPushButton::clicked, this, suojaa(&frmNimiHaku::etsi));
    connect(tSukunimi, &QLineEdit::returnPressed, this, suojaa(&frmNimiHaku::etsi));
    connect(tEtunimi, &QLineEdit::returnPressed, this, suojaa(&frmNimiHaku::etsi));
    connect(cOpen, &QPushButton::clicked, this, &frmNimiHaku::avaa);
    connect(lstFoundJR, &QListView::doubleClicked, this, &frmNimiHaku::avaa);
    connect(cUndo, &QPushButton::clicked, this, &frmNimiHaku::peru);
    connect(this, &QDialog::rejected, this, [] { HaettuJasenID = 0; });
    tSukunimi->setFocus();
}

frmNimiHaku::~frmNimiHaku() = default;

bool frmNimiHaku::lataa()
{
    if (!tietue::TietokantaAsetettu())
        return false;
    return tietue::Suojattu([this] { m_db = db::Database::open(MainModule::DatabasePath); });
}

bool frmNimiHaku::eventFilter(QObject *kohde, QEvent *e)
{
    if (kohde == lstFoundJR && e->type() == QEvent::KeyPress) {
        const int k = static_cast<QKeyEvent *>(e)->key();
        if (k == Qt::Key_Return || k == Qt::Key_Enter) {
            avaa();
            return true;
        }
    }
    return QDialog::eventFilter(kohde, e);
}

void frmNimiHaku::etsi()
{
    lblSearchMessage->clear();
    m_loydetyt->aseta({});
    if (tSukunimi->text().isEmpty() && tEtunimi->text().isEmpty()) {
        Ilmoita(QStringLiteral("Kirjoita haettava nimi."));
        return;
    }
    cMouseCursor odota;
    odota.SetCursor(this, Qt::WaitCursor);
    m_loydetyt->aseta(Jasenhaku::Nimella(*m_db, tSukunimi->text(), tEtunimi->text()));
    const int maara = m_loydetyt->rowCount();
    if (maara > 0) {
        lblSearchMessage->setText(QStringLiteral("Löytyi: %1").arg(maara));
        lstFoundJR->setCurrentIndex(m_loydetyt->index(0));
        lstFoundJR->setFocus();
    } else {
        lblSearchMessage->setText(QStringLiteral("Ei löytynyt."));
    }
}

void frmNimiHaku::avaa()
{
    const QModelIndexList valitut = lstFoundJR->selectionModel()->selectedIndexes();
    HaettuJasenID = valitut.isEmpty() ? 0 : valitut.first().data(HakuMalli::IdRooli).toLongLong();
    done(QDialog::Accepted);
}

void frmNimiHaku::peru()
{
    HaettuJasenID = 0;
    reject();
}
