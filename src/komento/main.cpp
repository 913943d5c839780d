// vonari-komento: the program's batch runs without windows.
//
//   vonari-komento TIETOKANTA KOMENTO [VALITSIMET...] [--tanaan PVM] [--ini POLKU] [--edistyminen]
//   vonari-komento --versio | --ohje
//
// Exit status 0 on success, 1 when the run refused or failed (nothing written), 2 on bad use.
#include "core/AsetuksetIni.h"
#include "core/MainModule.h"
#include "core/Avaus.h"
#include "komento/Komento.h"
#include "platform/kello.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QTextStream>

using namespace komento;

namespace {

QString kaytto()
{
    QString t = QStringLiteral("Käyttö: vonari-komento TIETOKANTA KOMENTO [VALITSIMET...] [--tanaan VVVV-KK-PP] "
                               "[--ini POLKU] [--edistyminen]\n"
                               "        vonari-komento --versio | --ohje\nKomennot:\n");
    for (const Verbi &v : Verbit())
        t += QStringLiteral("  ") + v.kaytto + QLatin1Char('\n');
    return t;
}

int vaaraKaytto(const QString &teksti)
{
    QTextStream(stderr) << teksti << Qt::endl << kaytto();
    return VaaraKaytto;
}

// --edistyminen: the run's steps on standard error, a line at every tenth of the way.
class Edistymisrivit : public Edistyminen {
public:
    explicit Edistymisrivit(QString otsikko) : m_otsikko(std::move(otsikko)) {}
    void vaihe(qint64 tehty, qint64 yhteensa) override
    {
        if (yhteensa <= 0)
            return;
        const int kymmenys = int(tehty * 10 / yhteensa);
        if (kymmenys == m_kymmenys)
            return;
        m_kymmenys = kymmenys;
        QTextStream(stderr) << m_otsikko << QStringLiteral(": %1/%2").arg(tehty).arg(yhteensa) << Qt::endl;
    }

private:
    QString m_otsikko;
    int m_kymmenys = -1;
};

// Takes the tool's own options out of the arguments, wherever they stand.
struct Yleiset {
    QDate tanaan;
    QString ini;
    bool edistyminen = false;
};

bool erotaYleiset(QStringList &a, Yleiset &y, QString *virhe)
{
    for (int i = 0; i < a.size();) {
        const QString x = a[i];
        if (x == QLatin1String("--edistyminen")) {
            y.edistyminen = true;
            a.removeAt(i);
        } else if (x == QLatin1String("--tanaan") || x == QLatin1String("--ini")) {
            if (i + 1 >= a.size()) {
                *virhe = QStringLiteral("Valitsimelta %1 puuttuu arvo.").arg(x);
                return false;
            }
            const QString arvo = a[i + 1];
            a.remove(i, 2);
            if (x == QLatin1String("--ini")) {
                y.ini = arvo;
            } else {
                y.tanaan = LuePaiva(arvo);
                if (!y.tanaan.isValid()) {
                    *virhe = QStringLiteral("Päivämäärä %1 ei kelpaa (VVVV-KK-PP tai p.k.vvvv).").arg(arvo);
                    return false;
                }
            }
        } else {
            ++i;
        }
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    // The reports need fonts, and fonts a GUI application; never a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("Vonari"));
    QLocale::setDefault(QLocale(QLocale::Finnish, QLocale::Finland));
    QStringList a = app.arguments().mid(1);

    if (a == QStringList{QStringLiteral("--versio")}) {
        QTextStream(stdout) << "vonari-komento " << MainModule::versionText() << Qt::endl;
        return Onnistui;
    }
    if (a == QStringList{QStringLiteral("--ohje")}) {
        QTextStream(stdout) << kaytto();
        return Onnistui;
    }
    Yleiset yleiset;
    QString virhe;
    if (!erotaYleiset(a, yleiset, &virhe))
        return vaaraKaytto(virhe);
    if (a.size() < 2)
        return vaaraKaytto(QStringLiteral("Anna tietokanta ja komento."));
    const QString verbi = a[1];
    const auto &verbit = Verbit();
    const auto loytyi = std::find_if(verbit.begin(), verbit.end(), [&](const Verbi &v) { return v.nimi == verbi; });
    if (loytyi == verbit.end())
        return vaaraKaytto(QStringLiteral("Tuntematon komento %1.").arg(verbi));
    if (!yleiset.ini.isEmpty() && !QFileInfo(yleiset.ini).isFile())
        return vaaraKaytto(QStringLiteral("Asetustiedostoa %1 ei löydy.").arg(yleiset.ini));

    Komentodialogit dialogit;
    dlg::install(&dialogit);
    if (yleiset.tanaan.isValid())
        kello::asetaTanaan(yleiset.tanaan);
    if (yleiset.edistyminen)
        AsetaEdistymisenLuoja([](const QString &otsikko) { return std::make_unique<Edistymisrivit>(otsikko); });

    int tila = Epaonnistui;
    try {
        LueIniAsetukset(yleiset.ini);
        if (std::unique_ptr<db::Database> kanta = AvaaKomennolle(QFileInfo(a[0]).absoluteFilePath())) {
            std::unique_ptr<Edistyminen> edistyminen = UusiEdistyminen(verbi);
            Ajo ajo(*kanta, edistyminen.get());
            Yhteys yhteys{ajo, dialogit, a.mid(2)};
            tila = loytyi->aja(yhteys);
        }
    } catch (const Keskeytetty &) {
        tila = Virhe(QStringLiteral("Keskeytetty. Mitään ei tallennettu."), Epaonnistui);
    } catch (const db::DbError &e) {
        tila = Virhe(e.message(), Epaonnistui);
    } catch (const std::exception &e) {
        tila = Virhe(QStringLiteral("Komento epäonnistui: ") + QString::fromUtf8(e.what()), Epaonnistui);
    }
    AsetaEdistymisenLuoja({});
    dlg::install(nullptr);
    return tila;
}
