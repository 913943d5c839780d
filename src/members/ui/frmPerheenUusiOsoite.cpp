#include "members/ui/frmPerheenUusiOsoite.h"

#include "core/MainModule.h"
#include "core/Schema.h"
#include "core/ui/uihelpers.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmPerheenUusiOsoite::frmPerheenUusiOsoite(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmPerheenUusiOsoite"));
    setWindowTitle(MainModule::AppName + QStringLiteral(" - Perheen uusi osoite"));
    auto *lomake = new QFormLayout;
    auto kentta = [&](QLineEdit *&t, const char *nimi, const char *sarake, const QString &otsikko) {
        t = new QLineEdit(this);
        t->setObjectName(QString::fromLatin1(nimi));
        t->setMaxLength(Schema::leveys(QStringLiteral("jr"), QString::fromLatin1(sarake)));
        t->setMinimumWidth(260);
        t->installEventFilter(this);
        lomake->addRow(otsikko, t);
    };
    kentta(tOsoite, "tOsoite", "jrOsoite", QStringLiteral("Osoite:"));
    kentta(tPostinumero, "tPostinumero", "jrPostinumero", QStringLiteral("Postinumero:"));
    kentta(tPostitoimipaikka, "tPostitoimipaikka", "jrPostitoimipaikka", QStringLiteral("Postitoimipaikka:"));
    kentta(tMaa, "tMaa", "jrMaa", QStringLiteral("Maa:"));

    auto *napit = new QDialogButtonBox(this);
    QPushButton *cTallenna = napit->addButton(QStringLiteral("Tallenna"), QDialogButtonBox::AcceptRole);
    cTallenna->setObjectName(QStringLiteral("cTallenna"));
    QPushButton *cPeru = napit->addButton(QStringLiteral("Peru"), QDialogButtonBox::RejectRole);
    cPeru->setObjectName(QStringLiteral("cPeru"));
    connect(cTallenna, &QPushButton::clicked, this, [this] { cTallenna_Click(); });
    connect(cPeru, &QPushButton::clicked, this, &QDialog::reject);

    auto *v = new QVBoxLayout(this);
    v->addLayout(lomake);
    v->addWidget(napit);
}

void frmPerheenUusiOsoite::Aseta(const PerheenOsoite &o)
{
    tOsoite->setText(o.osoite);
    tPostinumero->setText(o.postinumero);
    tPostitoimipaikka->setText(o.postitoimipaikka);
    tMaa->setText(o.maa);
}

void frmPerheenUusiOsoite::cTallenna_Click()
{
    Osoite = tOsoite->text();
    Postinumero = tPostinumero->text();
    Postitoimipaikka = tPostitoimipaikka->text();
    Maa = tMaa->text();
    Cancelled = false;
    accept();
}

bool frmPerheenUusiOsoite::eventFilter(QObject *o, QEvent *e)
{
    if (e->type() == QEvent::FocusIn)
        if (auto *t = qobject_cast<QLineEdit *>(o))
            MaalaaTeksti(t);
    return QDialog::eventFilter(o, e);
}
