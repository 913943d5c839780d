#include "members/ui/ArvoPaneeli.h"

#include "members/ui/Ikkunaapu.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

ArvoPaneeli::ArvoPaneeli(QWidget *parent) : QWidget(parent)
{
    auto uusiLabel = [this](const char *nimi, const QString &teksti) {
        auto *l = new QLabel(teksti, this);
        l->setObjectName(QLatin1String(nimi));
        return l;
    };
    auto uusiLaatikko = [this](const char *nimi) {
        auto *t = new QLineEdit(this);
        t->setObjectName(QLatin1String(nimi));
        return t;
    };
    lblKuvaus = uusiLabel("lblKuvaus", QStringLiteral("Kuvaus:"));
    lKuvaus = uusiLabel("lKuvaus", QString());
    lKuvaus->setWordWrap(true);
    lKuvaus->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lKuvaus->setMinimumHeight(fontMetrics().lineSpacing() * 2);
    lblDate = uusiLabel("lblDate", QStringLiteral("Päivämäärä:"));
    lblLong = uusiLabel("lblLong", QStringLiteral("Luku:"));
    lblCurrency = uusiLabel("lblCurrency", QStringLiteral("Arvo:"));
    lblMemo = uusiLabel("lblMemo", QStringLiteral("Muistio:"));
    tDate = uusiLaatikko("tDate");
    tLong = uusiLaatikko("tLong");
    tCurrency = uusiLaatikko("tCurrency");
    tMemo = new QPlainTextEdit(this);
    tMemo->setObjectName(QStringLiteral("tMemo"));
    tMemo->setTabChangesFocus(true);
    const int lyhyt = fontMetrics().horizontalAdvance(QStringLiteral("00.00.00000")) + 16;
    for (QLineEdit *t : {tDate, tLong, tCurrency})
        t->setMaximumWidth(lyhyt * 2);

    auto *g = new QGridLayout(this);
    g->setContentsMargins(0, 0, 0, 0);
    g->addWidget(lblKuvaus, 0, 0, Qt::AlignTop);
    g->addWidget(lKuvaus, 0, 1);
    g->addWidget(lblDate, 1, 0);
    g->addWidget(tDate, 1, 1);
    g->addWidget(lblLong, 2, 0);
    g->addWidget(tLong, 2, 1);
    g->addWidget(lblCurrency, 3, 0);
    g->addWidget(tCurrency, 3, 1);
    g->addWidget(lblMemo, 4, 0, Qt::AlignTop);
    g->addWidget(tMemo, 4, 1);
    g->setColumnStretch(1, 1);
    g->setRowStretch(4, 1);

    const std::pair<QLineEdit *, ArvoTyyppi> rivit[] = {
        {tDate, ArvoTyyppi::Paiva}, {tLong, ArvoTyyppi::Luku}, {tCurrency, ArvoTyyppi::Raha}};
    for (const auto &[t, tyyppi] : rivit) {
        connect(t, &QLineEdit::textEdited, this, &ArvoPaneeli::muutettu);
        connect(t, &QLineEdit::editingFinished, this, [this, t = t, tyyppi = tyyppi] { lahtiessa(t, tyyppi); });
    }
    connect(tMemo, &QPlainTextEdit::textChanged, this, [this] {
        if (!m_lataa)
            emit muutettu();
    });
    TyhjennaArvot();
}

QLabel *ArvoPaneeli::label(ArvoTyyppi t) const
{
    switch (t) {
    case ArvoTyyppi::Paiva: return lblDate;
    case ArvoTyyppi::Luku: return lblLong;
    case ArvoTyyppi::Raha: return lblCurrency;
    case ArvoTyyppi::Muistio: return lblMemo;
    }
    return nullptr;
}

QWidget *ArvoPaneeli::laatikko(ArvoTyyppi t) const
{
    switch (t) {
    case ArvoTyyppi::Paiva: return tDate;
    case ArvoTyyppi::Luku: return tLong;
    case ArvoTyyppi::Raha: return tCurrency;
    case ArvoTyyppi::Muistio: return tMemo;
    }
    return nullptr;
}

void ArvoPaneeli::asetaTeksti(ArvoTyyppi t, const QString &teksti)
{
    m_lataa = true;
    if (t == ArvoTyyppi::Muistio)
        tMemo->setPlainText(teksti);
    else
        static_cast<QLineEdit *>(laatikko(t))->setText(teksti);
    m_lataa = false;
}

QString ArvoPaneeli::teksti(ArvoTyyppi t) const
{
    if (t == ArvoTyyppi::Muistio)
        return tMemo->toPlainText();
    return static_cast<QLineEdit *>(laatikko(t))->text();
}

void ArvoPaneeli::TyhjennaArvot()
{
    lblKuvaus->setEnabled(false);
    lKuvaus->setEnabled(false);
    lKuvaus->clear();
    for (ArvoTyyppi t : KaikkiTyypit) {
        label(t)->setEnabled(false);
        asetaTeksti(t, QString());
        laatikko(t)->setEnabled(false);
    }
}

void ArvoPaneeli::naytaKuvaus(const QString &kuvaus)
{
    lblKuvaus->setEnabled(true);
    lKuvaus->setEnabled(true);
    lKuvaus->setText(kuvaus);
}

void ArvoPaneeli::naytaArvot(const ArvoSyote &arvot)
{
    for (ArvoTyyppi t : KaikkiTyypit) {
        const bool kaytossa = arvot.kaytossa[size_t(t)];
        label(t)->setEnabled(kaytossa);
        laatikko(t)->setEnabled(kaytossa);
        if (kaytossa)
            asetaTeksti(t, arvot.teksti[size_t(t)]);
    }
}

ArvoSyote ArvoPaneeli::syote() const
{
    ArvoSyote s;
    for (ArvoTyyppi t : KaikkiTyypit) {
        s.kaytossa[size_t(t)] = label(t)->isEnabledTo(this);
        s.teksti[size_t(t)] = teksti(t);
    }
    return s;
}

void ArvoPaneeli::tyhjenna(const std::array<bool, ArvoTyyppeja> &mitka)
{
    for (ArvoTyyppi t : KaikkiTyypit)
        if (mitka[size_t(t)])
            asetaTeksti(t, QString());
}

void ArvoPaneeli::lahtiessa(QLineEdit *t, ArvoTyyppi tyyppi)
{
    bool hylatty = false;
    const QString uusi = TekstiLahtiessa(tyyppi, t->text(), &hylatty);
    if (uusi != t->text())
        t->setText(uusi);
    if (hylatty)
        ikkuna::Piippaa();
}
