#include "members/ui/frmHaku.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/Schema.h"
#include "core/ui/uihelpers.h"
#include "members/Jasenhaku.h"
#include "members/ui/HakuMalli.h"
#include "core/ui/Tietueikkuna.h"

#include <QComboBox>
#include <QCompleter>
#include <QGridLayout>
#include <QKeyEvent>
#include <QWheelEvent>
#include <functional>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QPointer<frmHaku> &instanssi()
{
    static QPointer<frmHaku> d;
    return d;
}

std::unique_ptr<db::Database> avaaKanta() { return db::Database::open(MainModule::DatabasePath); }

// A drop-down list read at its first use: the popup, a key on the closed box, or the first letter
// typed. On the largest registers each list costs a full read and sort, which the dialog need
// not pay for the lists the user never opens.
class LaiskaValinta : public QComboBox {
public:
    using QComboBox::QComboBox;
    std::function<void()> tayta;

    void taytaNyt()
    {
        if (!tayta)
            return;
        const auto f = std::move(tayta);
        tayta = nullptr;
        f();
    }
    void showPopup() override
    {
        taytaNyt();
        QComboBox::showPopup();
    }

protected:
    void keyPressEvent(QKeyEvent *e) override
    {
        taytaNyt();
        QComboBox::keyPressEvent(e);
    }
    void wheelEvent(QWheelEvent *e) override
    {
        taytaNyt();
        QComboBox::wheelEvent(e);
    }
};

} // namespace

frmHaku::frmHaku(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmHaku"));
    setWindowTitle(QStringLiteral("Perushaku"));
    rakenna();
}

frmHaku *frmHaku::ladattu() { return instanssi(); }

void frmHaku::pura() { delete instanssi().data(); }

qint64 frmHaku::hae(QWidget *parent)
{
    if (!tietue::TietokantaAsetettu())
        return 0;
    QWidget *omistaja = parent ? parent->window() : nullptr;
    frmHaku *d = instanssi();
    if (!d) {
        d = new frmHaku(omistaja);
        instanssi() = d;
    } else if (d->parentWidget() != omistaja) {
        d->setParent(omistaja, d->windowFlags());
    }
    if (!tietue::Suojattu([d] { d->lataa(); }))
        return 0;
    d->LoydettyID = 0;
    d->exec();
    const qint64 id = d->LoydettyID;
    d->tyhjenna();
    return id;
}

QPushButton *frmHaku::painike(const char *nimi, const QString &teksti)
{
    auto *b = new QPushButton(teksti, this);
    b->setObjectName(QLatin1String(nimi));
    // Enter belongs to the box being typed in, which runs its own frame's search.
    b->setAutoDefault(false);
    b->setDefault(false);
    return b;
}

QComboBox *frmHaku::valinta(const char *nimi, bool muokattava, int leveys)
{
    auto *c = new LaiskaValinta(this);
    c->setObjectName(QLatin1String(nimi));
    c->setEditable(muokattava);
    c->setInsertPolicy(QComboBox::NoInsert);
    c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    c->setMinimumContentsLength(28);
    c->setMaxVisibleItems(15);
    c->setModel(new HakuMalli(c));
    if (auto *v = qobject_cast<QListView *>(c->view()))
        v->setUniformItemSizes(true);
    if (muokattava) {
        c->lineEdit()->setMaxLength(leveys);
        connect(c->lineEdit(), &QLineEdit::textEdited, c, [c] { c->taytaNyt(); });
        // The typed text stays as typed; the matches are only offered below it.
        QCompleter *k = c->completer();
        k->setCompletionMode(QCompleter::PopupCompletion);
        k->setCaseSensitivity(Qt::CaseInsensitive);
        if (auto *v = qobject_cast<QListView *>(k->popup()))
            v->setUniformItemSizes(true);
    }
    return c;
}

void frmHaku::rakenna()
{
    auto leveys = [](const char *kentta) { return Schema::leveys(QStringLiteral("jr"), QLatin1String(kentta)); };
    cmbJasenNro = valinta("cmbJasenNro", true, leveys("jrJasennumero"));
    cHae = painike("cHae", QStringLiteral("Hae (&1)"));
    tMuistioHakuSana = new QLineEdit(this);
    tMuistioHakuSana->setObjectName(QStringLiteral("tMuistioHakuSana"));
    cmbMuistioAlut = valinta("cmbMuistioAlut", false, 0);
    cMuistioHaku = painike("cMuistioHaku", QStringLiteral("Hae (&2)"));
    cmbOsoite = valinta("cmbOsoite", true, leveys("jrOsoite"));
    cmbPuhelin = valinta("cmbPuhelin", true, leveys("jrPuhelin"));
    cmbMatkapuhelin = valinta("cmbMatkapuhelin", true, leveys("jrMatkapuhelin"));
    cmbEmail = valinta("cmbEmail", true, leveys("jrEmail"));
    cYhteysHaku = painike("cYhteysHaku", QStringLiteral("Hae (&3)"));
    for (int i = 0; i < 3; ++i) {
        cPeruHaku[i] = painike("cPeruHaku", QStringLiteral("Peruuta"));
        connect(cPeruHaku[i], &QPushButton::clicked, this, [this] { peru(); });
    }

    // One grid per frame; the label columns are kept equal so that the frames line up.
    QVector<QGridLayout *> ruudukot;
    auto kehys = [&](const QString &otsikko, const QList<QPair<QString, QWidget *>> &rivit, QPushButton *hae, QPushButton *peru) {
        auto *g = new QGroupBox(otsikko, this);
        auto *l = new QGridLayout(g);
        int r = 0;
        for (const auto &[teksti, kentta] : rivit) {
            auto *nimi = new QLabel(teksti, g);
            nimi->setBuddy(kentta);
            l->addWidget(nimi, r, 0);
            l->addWidget(kentta, r, 1);
            ++r;
        }
        l->addWidget(hae, 0, 2);
        l->addWidget(peru, 1, 2);
        l->setColumnStretch(1, 1);
        l->setRowStretch(qMax(r, 2), 1);
        ruudukot << l;
        return g;
    };
    auto *ylin = new QVBoxLayout(this);
    ylin->addWidget(kehys(QStringLiteral("Jäsennumerohaku"), {{QStringLiteral("Jäsennumero:"), cmbJasenNro}}, cHae, cPeruHaku[0]));
    ylin->addWidget(kehys(QStringLiteral("Muistiohaku"),
                          {{QStringLiteral("Täyshaku:"), tMuistioHakuSana}, {QStringLiteral("Muistion alku:"), cmbMuistioAlut}},
                          cMuistioHaku, cPeruHaku[1]));
    ylin->addWidget(kehys(QStringLiteral("Yhteystiedoilla"),
                          {{QStringLiteral("Osoite:"), cmbOsoite},
                           {QStringLiteral("Puhelin:"), cmbPuhelin},
                           {QStringLiteral("Matkapuhelin:"), cmbMatkapuhelin},
                           {QStringLiteral("Email:"), cmbEmail}},
                          cYhteysHaku, cPeruHaku[2]));
    const int nimileveys = QLabel(QStringLiteral("Muistion alku:")).sizeHint().width() + 8;
    for (QGridLayout *l : ruudukot)
        l->setColumnMinimumWidth(0, nimileveys);

    connect(cHae, &QPushButton::clicked, this, [this] { tietue::Suojattu([this] { hae_(); }); });
    connect(cMuistioHaku, &QPushButton::clicked, this, [this] { tietue::Suojattu([this] { muistioHaku(); }); });
    connect(cYhteysHaku, &QPushButton::clicked, this, [this] { tietue::Suojattu([this] { yhteysHaku(); }); });
    connect(cmbJasenNro->lineEdit(), &QLineEdit::returnPressed, cHae, &QPushButton::click);
    connect(tMuistioHakuSana, &QLineEdit::returnPressed, cMuistioHaku, &QPushButton::click);
    for (QComboBox *c : {cmbOsoite, cmbPuhelin, cmbMatkapuhelin, cmbEmail}) {
        connect(c->lineEdit(), &QLineEdit::textEdited, this, [this, c](const QString &t) {
            if (!t.isEmpty())
                yhteystietoKirjoitettu(c);
        });
        connect(c, &QComboBox::activated, this, [this, c] { yhteystietoKirjoitettu(c); });
        connect(c->lineEdit(), &QLineEdit::returnPressed, cYhteysHaku, &QPushButton::click);
    }
    setFocusProxy(cmbJasenNro);
}

HakuMalli *frmHaku::malli(QComboBox *c) const { return static_cast<HakuMalli *>(c->model()); }

void frmHaku::lataa()
{
    if (m_kanta == MainModule::DatabasePath)
        return;
    auto lista = [this](QComboBox *c, std::function<QVector<HakuRivi>(db::Database &)> lue) {
        malli(c)->aseta({});
        static_cast<LaiskaValinta *>(c)->tayta = [this, c, lue] {
            tietue::Suojattu([this, c, &lue] {
                cMouseCursor odota;
                odota.SetCursor(this, Qt::WaitCursor);
                auto db = avaaKanta();
                // Filling the list resets the box: what was typed so far is put back.
                const QString teksti = c->currentText();
                const int kohta = c->isEditable() ? c->lineEdit()->cursorPosition() : 0;
                malli(c)->aseta(lue(*db));
                c->setCurrentIndex(-1);
                if (c->isEditable()) {
                    c->setEditText(teksti);
                    c->lineEdit()->setCursorPosition(kohta);
                }
            });
        };
    };
    auto sarake = [](const QString &s) { return [s](db::Database &db) { return Jasenhaku::Arvot(db, s); }; };
    using Y = Jasenhaku::Yhteystieto;
    lista(cmbJasenNro, sarake(QStringLiteral("jrJasennumero")));
    lista(cmbOsoite, sarake(Jasenhaku::sarake(Y::Osoite)));
    lista(cmbPuhelin, sarake(Jasenhaku::sarake(Y::Puhelin)));
    lista(cmbMatkapuhelin, sarake(Jasenhaku::sarake(Y::Matkapuhelin)));
    lista(cmbEmail, sarake(Jasenhaku::sarake(Y::Email)));
    lista(cmbMuistioAlut, [](db::Database &db) { return Jasenhaku::MuistioAlut(db); });
    m_kanta = MainModule::DatabasePath;
    tyhjenna();
}

void frmHaku::tyhjenna()
{
    for (QComboBox *c : {cmbJasenNro, cmbMuistioAlut, cmbOsoite, cmbPuhelin, cmbMatkapuhelin, cmbEmail}) {
        c->setCurrentIndex(-1);
        if (c->isEditable())
            c->clearEditText();
    }
    tMuistioHakuSana->clear();
    cmbJasenNro->setFocus();
}

// A row of the list is chosen when the box shows that row's text; a text typed over it, or one
// no row has, is a typed value.
bool frmHaku::valittu(const QComboBox *c)
{
    const int i = c->currentIndex();
    return i >= 0 && (!c->isEditable() || c->currentText() == c->itemText(i));
}

qint64 frmHaku::valitunId(const QComboBox *c) { return c->itemData(c->currentIndex(), HakuMalli::IdRooli).toLongLong(); }

void frmHaku::loytyi(qint64 id)
{
    LoydettyID = id;
    accept();
}

void frmHaku::hae_()
{
    if (valittu(cmbJasenNro)) {
        loytyi(valitunId(cmbJasenNro));
        return;
    }
    auto db = avaaKanta();
    const qint64 id = Jasenhaku::Jasennumerolla(*db, cmbJasenNro->currentText());
    if (id == 0) {
        Ilmoita(QStringLiteral("Jäsennumerolla ei löydy jäsentä."));
        return;
    }
    loytyi(id);
}

void frmHaku::muistioHaku()
{
    qint64 id = 0;
    const QString sana = tMuistioHakuSana->text();
    if (!sana.isEmpty()) {
        auto db = avaaKanta();
        const auto tulos = Jasenhaku::MuistiostaHaku(*db, sana);
        if (tulos.maara == 0)
            Ilmoita(QStringLiteral("Muistiosta ei löydy annettua tietoa."));
        else if (tulos.maara > 1)
            Ilmoita(QStringLiteral("Löytyi useita mahdollisia (%1). Siirrytään ensimmäiseen löydettyyn.").arg(tulos.maara));
        id = tulos.jrID;
    } else if (valittu(cmbMuistioAlut)) {
        auto db = avaaKanta();
        // The start is searched again: another member with the same start may come first.
        id = Jasenhaku::MuistionAlulla(*db, cmbMuistioAlut->currentData(HakuMalli::TekstiRooli).toString());
        if (id == 0)
            Ilmoita(QStringLiteral("Muistiosta ei löydy annettua tietoa."));
    } else {
        Ilmoita(QStringLiteral("Hakuehtoa ei ole valittu."));
    }
    if (id != 0)
        loytyi(id);
}

void frmHaku::yhteystietoKirjoitettu(QComboBox *kirjoitettu)
{
    for (QComboBox *c : {cmbOsoite, cmbPuhelin, cmbMatkapuhelin, cmbEmail}) {
        if (c == kirjoitettu)
            continue;
        c->setCurrentIndex(-1);
        c->clearEditText();
    }
}

void frmHaku::yhteysHaku()
{
    using Y = Jasenhaku::Yhteystieto;
    const QPair<QComboBox *, Y> laatikot[] = {{cmbOsoite, Y::Osoite}, {cmbPuhelin, Y::Puhelin},
                                              {cmbMatkapuhelin, Y::Matkapuhelin}, {cmbEmail, Y::Email}};
    qint64 id = 0;
    for (const auto &[c, y] : laatikot) {
        if (c->currentText().isEmpty())
            continue;
        if (valittu(c)) {
            id = valitunId(c);
        } else {
            auto db = avaaKanta();
            id = Jasenhaku::Yhteystiedolla(*db, y, c->currentText());
        }
        break;
    }
    if (id == 0) {
        Ilmoita(QStringLiteral("Ei löydy jäsentä."));
        return;
    }
    loytyi(id);
}

void frmHaku::peru()
{
    LoydettyID = 0;
    reject();
}
