#include "core/ui/frmAsetukset.h"

#include "core/AsetustenTallennus.h"
#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/Perustus.h"
#include "core/ui/Tietueikkuna.h"
#include "platform/arvot.h"
#include "core/ui/frmAsetuksetLisa.h"
#include "core/ui/uihelpers.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

namespace M = MainModule;

namespace {
// A reminder text is printed on one line of the letter and is stored in one setting.
constexpr int kMuistutustekstinPituus = 255;
} // namespace

frmAsetukset::frmAsetukset(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAsetukset"));
    setWindowTitle(QStringLiteral("Vonari - Asetukset"));
    cMouseCursor kursori;
    kursori.SetCursor(this, Qt::WaitCursor);

    auto *menut = new QMenuBar(this);
    QMenu *toiminnot = menut->addMenu(QStringLiteral("&Toiminnot"));
    mLisaasetukset = toiminnot->addAction(QStringLiteral("&Lisäasetukset..."));
    mLisaasetukset->setObjectName(QStringLiteral("mLisaasetukset"));
    mCreateNewDatabase = toiminnot->addAction(QStringLiteral("Luo &uusi tietokanta..."));
    mCreateNewDatabase->setObjectName(QStringLiteral("mCreateNewDatabase"));
    connect(mLisaasetukset, &QAction::triggered, this, &frmAsetukset::mLisaasetukset_Click);
    connect(mCreateNewDatabase, &QAction::triggered, this, &frmAsetukset::mCreateNewDatabase_Click);

    TabStrip1 = new QTabWidget(this);
    TabStrip1->setObjectName(QStringLiteral("TabStrip1"));
    TabStrip1->addTab(teeSeuraSivu(), QStringLiteral("Seura"));
    TabStrip1->addTab(teeInternetSivu(), QStringLiteral("Internet"));
    TabStrip1->addTab(teeOhjelmaSivu(), QStringLiteral("Ohjelma"));
    TabStrip1->addTab(teeMuistutusSivu(), QStringLiteral("Muistutukset"));
    TabStrip1->addTab(teeTulostusSivu(), QStringLiteral("Tulostus"));
    TabStrip1->addTab(teeLaskupohjaSivu(), QStringLiteral("Laskupohjat"));

    cTallenna = new QPushButton(QStringLiteral("Tallenna"), this);
    cTallenna->setObjectName(QStringLiteral("cTallenna"));
    cPeru = new QPushButton(QStringLiteral("Peru"), this);
    cPeru->setObjectName(QStringLiteral("cPeru"));
    cSulje = new QPushButton(QStringLiteral("Sulje"), this);
    cSulje->setObjectName(QStringLiteral("cSulje"));
    for (QPushButton *b : {cTallenna, cPeru, cSulje})
        b->setAutoDefault(false);
    connect(cTallenna, &QPushButton::clicked, this, &frmAsetukset::cTallenna_Click);
    connect(cPeru, &QPushButton::clicked, this, &frmAsetukset::cPeru_Click);
    connect(cSulje, &QPushButton::clicked, this, &frmAsetukset::cSulje_Click);

    auto *napit = new QHBoxLayout;
    napit->addStretch();
    napit->addWidget(cTallenna);
    napit->addWidget(cPeru);
    napit->addWidget(cSulje);

    auto *paa = new QVBoxLayout(this);
    paa->setMenuBar(menut);
    paa->addWidget(TabStrip1);
    paa->addLayout(napit);

    taytaSeura();
    taytaInternet();
    taytaOhjelma();
    taytaTulostus();
    seuraaMuutoksia();
    // Wide enough for the paths of the program tab; a saved placement overrides it.
    resize(qMax(sizeHint().width(), 660), sizeHint().height());
    LataaIkkunanPaikka(this);
    m_muuttunut = false;
}

// ---- Building blocks shared by the tabs ----

QLineEdit *frmAsetukset::tekstikentta(const QString &name, int maxLength)
{
    auto *t = new QLineEdit(this);
    t->setObjectName(name);
    t->setMaxLength(maxLength);
    t->installEventFilter(this);
    return t;
}

QLineEdit *frmAsetukset::numerokentta(const QString &name, const QString &viesti, int maxLength)
{
    QLineEdit *t = tekstikentta(name, maxLength);
    t->setMaximumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * 12 + 12);
    m_numeroviestit.insert(t, viesti);
    connect(t, &QLineEdit::textChanged, this, [this, t] { tarkistaNumero(t); });
    return t;
}

QPushButton *frmAsetukset::valintanappi(const QString &name)
{
    auto *b = new QPushButton(QStringLiteral("Selaa..."), this);
    b->setObjectName(name);
    b->setAutoDefault(false);
    return b;
}

QPlainTextEdit *frmAsetukset::muistutusteksti(const QString &name)
{
    auto *t = new QPlainTextEdit(this);
    t->setObjectName(name);
    t->setTabChangesFocus(true);
    t->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    t->setFixedHeight(t->fontMetrics().lineSpacing() * 4 + 12);
    t->installEventFilter(this);
    connect(t, &QPlainTextEdit::textChanged, this, [this, t] { poistaRivinvaihdot(t); });
    return t;
}

void frmAsetukset::lisaaRivi(QGridLayout *grid, int row, const QString &caption, QWidget *field, QWidget *beside)
{
    auto *label = new QLabel(caption);
    label->setBuddy(field);
    grid->addWidget(label, row, 0);
    if (beside) {
        grid->addWidget(field, row, 1);
        grid->addWidget(beside, row, 2);
    } else {
        grid->addWidget(field, row, 1, 1, 2);
    }
}

void frmAsetukset::seuraaMuutoksia()
{
    const auto merkitse = [this] { m_muuttunut = true; };
    for (QLineEdit *t : findChildren<QLineEdit *>())
        connect(t, &QLineEdit::textChanged, this, merkitse);
    for (QPlainTextEdit *t : findChildren<QPlainTextEdit *>())
        connect(t, &QPlainTextEdit::textChanged, this, merkitse);
    for (QCheckBox *c : findChildren<QCheckBox *>())
        connect(c, &QCheckBox::toggled, this, merkitse);
    for (QRadioButton *o : findChildren<QRadioButton *>())
        connect(o, &QRadioButton::toggled, this, merkitse);
    for (QComboBox *c : findChildren<QComboBox *>())
        connect(c, &QComboBox::currentIndexChanged, this, merkitse);
}

// ---- Checks while typing ----

void frmAsetukset::tarkistaNumero(QLineEdit *t)
{
    const QString text = t->text();
    if (text.isEmpty() || OnNumeerinen(text))
        return;
    Ilmoita(m_numeroviestit.value(t));
    t->clear();
}

void frmAsetukset::poistaRivinvaihdot(QPlainTextEdit *t)
{
    // Pasted text may bring line breaks that the Enter key cannot.
    QString text = t->toPlainText();
    const bool rivit = text.contains(QLatin1Char('\n')) || text.contains(QLatin1Char('\r'))
        || text.contains(QChar::LineSeparator) || text.contains(QChar::ParagraphSeparator);
    if (!rivit && text.size() <= kMuistutustekstinPituus)
        return;
    for (QChar c : {QChar(QLatin1Char('\r')), QChar(QLatin1Char('\n')), QChar(QChar::LineSeparator),
                    QChar(QChar::ParagraphSeparator)})
        text.replace(c, QLatin1Char(' '));
    text.truncate(kMuistutustekstinPituus);
    const int paikka = qMin(t->textCursor().position(), int(text.size()));
    const QSignalBlocker esto(t);
    t->setPlainText(text);
    QTextCursor c = t->textCursor();
    c.setPosition(paikka);
    t->setTextCursor(c);
}

bool frmAsetukset::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress
        && (watched == tMuistutusAlkuteksti || watched == tMuistutusLopputeksti)) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            Ilmoita(QStringLiteral("Muistutuksen teksteissä ei saa olla rivinvaihtoja."));
            return true;
        }
    }
    if (auto *t = qobject_cast<QLineEdit *>(watched)) {
        if (event->type() == QEvent::FocusIn) {
            MaalaaTeksti(t);
        } else if (event->type() == QEvent::FocusOut) {
            if (t == tEmailPerMin && t->text().isEmpty())
                t->setText(QStringLiteral("0"));
            else if (t == tVarmistus)
                t->setText(KauttaviivaLoppuun(t->text()));
        }
    }
    return QDialog::eventFilter(watched, event);
}

// ---- Save and closing ----

bool frmAsetukset::tallenna()
{
    AsetuksetSyote s;
    lueSeura(s);
    lueInternet(s);
    lueOhjelma(s);
    lueTulostus(s);
    AsetustenTallennusTulos tulos;
    {
        cMouseCursor kursori;
        kursori.SetCursor(this, Qt::WaitCursor);
        tulos = TallennaAsetukset(s);
    }
    tVarmistus->setText(M::BackupPath);
    if (!tulos.kohdistus.isEmpty())
        kohdista(tulos.kohdistus);
    if (!tulos.valmis)
        return false;
    paivitaPaaikkunanOtsikko();
    m_muuttunut = false;
    return true;
}

void frmAsetukset::kohdista(const QString &kentta)
{
    auto *w = findChild<QWidget *>(kentta);
    if (!w)
        return;
    for (QWidget *p = w; p; p = p->parentWidget()) {
        const int i = TabStrip1->indexOf(p);
        if (i >= 0) {
            TabStrip1->setCurrentIndex(i);
            break;
        }
    }
    w->setFocus(Qt::OtherFocusReason);
    if (auto *t = qobject_cast<QLineEdit *>(w))
        MaalaaTeksti(t);
}

void frmAsetukset::paivitaPaaikkunanOtsikko()
{
    // The main window is found by name so that this window does not depend on it.
    for (QWidget *w : QApplication::topLevelWidgets())
        if (w->objectName() == QLatin1String("frmMain"))
            w->setWindowTitle(M::AppName + QStringLiteral(" - ") + M::RegName);
}

void frmAsetukset::cTallenna_Click()
{
    if (tallenna())
        done(QDialog::Accepted);
}

void frmAsetukset::cPeru_Click() { done(QDialog::Rejected); }

void frmAsetukset::cSulje_Click()
{
    tietue::SuljeKysyen(m_muuttunut, [this] { cTallenna_Click(); }, [this] { done(QDialog::Rejected); });
}

void frmAsetukset::reject() { cSulje_Click(); }

void frmAsetukset::done(int result)
{
    TallennaIkkunanPaikka(this);
    QDialog::done(result);
}

// ---- Menu ----

void frmAsetukset::mLisaasetukset_Click()
{
    if (m_muuttunut
        && Kysy(QStringLiteral("Asetuksiin on tehty muutoksia ja ne pitää tallentaa ennen lisäasetusten avaamista, "
                               "tallennetaanko muutokset?"))
        && !tallenna())
        return;
    AvaaLisaasetukset(this);
}

void frmAsetukset::mCreateNewDatabase_Click()
{
    if (PerustaTietokanta(QStringLiteral("Tämä toiminto luo uuden tietokannan yhdistyksen jäsenrekisterin pohjaksi."),
                          QStringLiteral("malli.mdb"))) {
        // The new database is taken into use at the next start.
        done(QDialog::Rejected);
        QCoreApplication::exit(0);
    }
}
