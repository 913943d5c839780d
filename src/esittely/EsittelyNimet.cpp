#include "esittely/EsittelyNimet.h"

namespace esittely {

namespace {

QStringList lista(std::initializer_list<const char *> sanat)
{
    QStringList out;
    out.reserve(qsizetype(sanat.size()));
    for (const char *s : sanat)
        out << QString::fromUtf8(s);
    return out;
}

QVector<Postitoimipaikka> paikat(std::initializer_list<std::initializer_list<const char *>> rivit)
{
    QVector<Postitoimipaikka> out;
    for (const auto &r : rivit) {
        const QStringList k = lista(r);
        out.push_back({k.value(0), k.value(1), k.value(2), k.value(3), k.value(4)});
    }
    return out;
}

} // namespace

const QStringList &Sukunimet()
{
    static const QStringList s = lista({
        "Virtanen", "Korhonen", "Mäkinen", "Nieminen", "Mäkelä", "Hämäläinen", "Laine", "Heikkinen",
        "Koskinen", "Järvinen", "Lehtonen", "Lehtinen", "Saarinen", "Salminen", "Heinonen", "Niemi",
        "Heikkilä", "Kinnunen", "Salonen", "Turunen", "Salo", "Laitinen", "Tuominen", "Rantanen",
        "Karjalainen", "Jokinen", "Mattila", "Savolainen", "Lahtinen", "Ahonen", "Hiltunen", "Seppälä",
        "Leinonen", "Hirvonen", "Kallio", "Väisänen", "Ojala", "Leppänen", "Aaltonen", "Kärkkäinen",
        "Pitkänen", "Miettinen", "Manninen", "Räsänen", "Nurmi", "Laaksonen", "Anttila", "Lindholm",
        "Rinne", "Peltonen", "Toivonen", "Koivisto", "Vainio", "Mustonen", "Ketola", "Huttunen",
        "Kettunen", "Hakala", "Jääskeläinen", "Kananen", "Pölönen", "Kääriäinen", "Ström", "Söderberg",
        "Lindqvist", "Holmström", "Sjöberg", "Grönroos", "Åberg", "Öhman", "Blomqvist", "Nyström",
        "Backman", "Sundström", "Lindström", "Wikström", "Forsström", "Åström", "Hyvönen", "Eskola",
        "Tikkanen", "Moilanen", "Lappalainen", "Partanen", "Valtonen", "Kokkonen", "Pesonen", "Sirola",
        "Hänninen", "Tiainen", "Rautiainen", "Kosonen", "Jäntti", "Pääkkönen", "Määttä", "Lämsä",
        "Kyllönen", "Pöyhönen", "Vähäkangas", "Ylönen", "Äijälä", "Örn", "Söderlund", "Kiiskinen",
        "Kemppainen", "Ikonen", "Pulkkinen", "Nyberg", "Hakkarainen", "Repo", "Suominen", "Ruotsalainen",
        "Honkanen", "Kauppinen", "Nurminen", "Vesterinen", "Immonen", "Halonen", "Harju", "Koponen",
        "Haapala", "Riihimäki", "Ylä-Mononen", "Mäki-Petäjä", "Ala-Kokko", "Yli-Hemminki",
    });
    return s;
}

const QStringList &HeittomerkkiSukunimet()
{
    static const QStringList s = lista({"O'Connor", "O'Brien", "D'Souza", "O'Neill", "D'Angelo", "McCarthy"});
    return s;
}

const QStringList &MiestenNimet()
{
    static const QStringList s = lista({
        "Juhani", "Matti", "Mikko", "Antti", "Jukka", "Timo", "Pekka", "Ville", "Jari", "Mika",
        "Heikki", "Markku", "Petri", "Janne", "Sami", "Tuomas", "Kari", "Lauri", "Eero", "Onni",
        "Väinö", "Eino", "Elias", "Leevi", "Aleksi", "Joonas", "Veeti", "Niilo", "Aatu", "Oliver",
        "Yrjö", "Kyösti", "Tapani", "Ilmari", "Jörgen", "Björn", "Göran", "Håkan", "Pär", "Esa",
        "Juha-Pekka", "Jukka-Pekka", "Olli-Pekka", "Ari", "Seppo", "Erkki", "Pentti", "Reijo", "Raimo",
        "Toni", "Niko", "Rasmus", "Eetu", "Luukas", "Väinämö", "Jänne", "Otto", "Emil", "Akseli",
    });
    return s;
}

const QStringList &NaistenNimet()
{
    static const QStringList s = lista({
        "Maria", "Anna", "Liisa", "Johanna", "Helena", "Kaarina", "Tuula", "Päivi", "Sari", "Anne",
        "Minna", "Tiina", "Riitta", "Marja", "Leena", "Eeva", "Aino", "Helmi", "Sofia", "Emma",
        "Venla", "Ella", "Olivia", "Aada", "Lilja", "Iida", "Linnea", "Siiri", "Pihla", "Hilla",
        "Sirpa", "Ritva", "Pirjo", "Seija", "Märta", "Åsa", "Sölvi", "Ylvä", "Säde", "Pälvi",
        "Anna-Liisa", "Eeva-Kaisa", "Marja-Leena", "Hanna-Riikka", "Kirsi", "Satu", "Heidi", "Katja",
        "Elina", "Noora", "Jenni", "Laura", "Milla", "Iines", "Enni", "Aurora", "Nelli", "Vilja",
    });
    return s;
}

const QStringList &Kadut()
{
    static const QStringList s = lista({
        "Sibeliuksenkatu", "Mannilantie", "Koivukuja", "Pihlajatie", "Kirkkotie", "Rantatie",
        "Asemakatu", "Myllytie", "Koulukatu", "Puistotie", "Mäntytie", "Kuusitie", "Sepänkatu",
        "Sahantie", "Helsingintie", "Tuusulantie", "Vanhankyläntie", "Kartanontie", "Ojakkalantie",
        "Lepolantie", "Haarajoentie", "Seutulantie", "Urheilukatu", "Satamakatu", "Kauppakatu",
        "Hämeenkatu", "Porvoontie", "Mäkikuja", "Kettukuja", "Ahomansikantie", "Kielotie",
        "Sinivuokontie", "Pajupillintie", "Ruskotie", "Lähdekuja", "Järvenpääntie", "Jampankatu",
        "Vanha Porvoontie", "Vanha Valtatie", "Pohjoinen Rantakatu", "Itäinen Puistotie",
        "Kristiina Wegeliuksen katu", "Aleksis Kiven tie", "Eteläinen Esplanadi", "Rajakatu",
        "Yliopistonkatu", "Tehtaankatu", "Länsikatu", "Sammonkatu", "Väinönkatu", "Ilmarisenkatu",
        "Tervahovinkatu", "Säästöpankinkatu", "Rautatienkatu", "Myllärintie", "Tuulimyllynkuja",
    });
    return s;
}

const QVector<Postitoimipaikka> &KotiseudunPostitoimipaikat()
{
    static const QVector<Postitoimipaikka> s = paikat({
        {"04400", "JÄRVENPÄÄ", "Järvenpää", "", "09"},
        {"04410", "JÄRVENPÄÄ", "Järvenpää", "", "09"},
        {"04420", "JÄRVENPÄÄ", "Järvenpää", "", "09"},
        {"04430", "JÄRVENPÄÄ", "Järvenpää", "", "09"},
        {"04440", "JÄRVENPÄÄ", "Järvenpää", "", "09"},
        {"04460", "NUKARI", "Nurmijärvi", "", "09"},
        {"04480", "HAARAJOKI", "Järvenpää", "", "09"},
    });
    return s;
}

const QVector<Postitoimipaikka> &NaapurikuntienPostitoimipaikat()
{
    static const QVector<Postitoimipaikka> s = paikat({
        {"04300", "TUUSULA", "Tuusula", "", "09"},
        {"04310", "TUUSULA", "Tuusula", "", "09"},
        {"04320", "TUUSULA", "Tuusula", "", "09"},
        {"04330", "LAHELA", "Tuusula", "", "09"},
        {"04340", "TUUSULA", "Tuusula", "", "09"},
        {"04200", "KERAVA", "Kerava", "", "09"},
        {"04220", "KERAVA", "Kerava", "", "09"},
        {"04230", "KERAVA", "Kerava", "", "09"},
        {"04250", "KERAVA", "Kerava", "", "09"},
        {"04260", "KERAVA", "Kerava", "", "09"},
        {"04600", "MÄNTSÄLÄ", "Mäntsälä", "", "019"},
        {"04500", "KELLOKOSKI", "Tuusula", "", "09"},
        {"05800", "HYVINKÄÄ", "Hyvinkää", "", "019"},
        {"04130", "SIPOO", "Sipoo", "", "09"},
    });
    return s;
}

const QVector<Postitoimipaikka> &MuunSuomenPostitoimipaikat()
{
    static const QVector<Postitoimipaikka> s = paikat({
        {"00100", "HELSINKI", "Helsinki", "", "09"},
        {"00530", "HELSINKI", "Helsinki", "", "09"},
        {"00970", "HELSINKI", "Helsinki", "", "09"},
        {"01300", "VANTAA", "Vantaa", "", "09"},
        {"02100", "ESPOO", "Espoo", "", "09"},
        {"06100", "PORVOO", "Porvoo", "", "019"},
        {"15110", "LAHTI", "Lahti", "", "03"},
        {"33100", "TAMPERE", "Tampere", "", "03"},
        {"20100", "TURKU", "Turku", "", "02"},
        {"40100", "JYVÄSKYLÄ", "Jyväskylä", "", "014"},
        {"70100", "KUOPIO", "Kuopio", "", "017"},
        {"90100", "OULU", "Oulu", "", "08"},
        {"96100", "ROVANIEMI", "Rovaniemi", "", "016"},
        {"65100", "VAASA", "Vaasa", "", "06"},
        {"22100", "MAARIANHAMINA", "Maarianhamina", "", "018"},
        {"68600", "PIETARSAARI", "Pietarsaari", "", "06"},
    });
    return s;
}

const QVector<Postitoimipaikka> &UlkomaisetPostitoimipaikat()
{
    static const QVector<Postitoimipaikka> s = paikat({
        {"11122", "STOCKHOLM", "Tukholma", "Ruotsi", ""},
        {"41101", "GÖTEBORG", "Göteborg", "Ruotsi", ""},
        {"10111", "TALLINN", "Tallinna", "Viro", ""},
        {"0150", "OSLO", "Oslo", "Norja", ""},
        {"10115", "BERLIN", "Berliini", "Saksa", ""},
    });
    return s;
}

const QStringList &Tittelit()
{
    static const QStringList s = lista({
        "Insinööri", "Opettaja", "Sairaanhoitaja", "Yrittäjä", "Eläkeläinen", "Diplomi-insinööri",
        "Ekonomi", "Lehtori", "Kauppaneuvos", "Toimitusjohtaja", "Rehtori", "Lähihoitaja",
        "Filosofian maisteri", "Maanviljelijä", "Sähköasentaja", "Kirvesmies", "Lääkäri", "Tradenomi",
    });
    return s;
}

const QStringList &Yritykset()
{
    static const QStringList s = lista({
        "Järvenpään Sähkö ja Valo Oy", "Rakennus Mäkelä Ky", "Tilitoimisto Öhman & Co", "Kukkakauppa Pihlaja",
        "Autokorjaamo Virtanen Oy", "Parturi-Kampaamo Säde", "Leipomo Hämäläinen Oy", "LVI-Asennus Kallio Ky",
        "Kuljetus O'Connor Oy", "Apteekki Järvenpää",
    });
    return s;
}

const QStringList &Lisatiedot()
{
    static const QStringList s = lista({
        "Allergia: pähkinä", "Kuvauslupa: ei", "Kuvauslupa: kyllä", "Yhteyshenkilö: äiti",
        "Yhteyshenkilö: isä", "Seuran lehti sähköisenä", "Talvet Espanjassa", "Kuljetusapu kisamatkoille",
        "Ei puhelinmarkkinointia", "Toivoo paperilaskun", "Erityisruokavalio: gluteeniton",
    });
    return s;
}

const QStringList &Muistiot()
{
    static const QStringList s = lista({
        "Siirtynyt junioreista aikuisten ryhmään.",
        "Maksaa kausimaksun kahdessa erässä.",
        "Toimi seuran sihteerinä 2015–2019.\nHaluaa jatkossa auttaa kioskivuoroissa.",
        "Osoite tarkistettava: posti palautui syksyllä.",
        "Ensiapukurssi käyty, todistus toimitettu toimistolle.",
        "Sponsoriyhteistyö: kysy mainostilasta seuran lehdessä.",
        "Muutti takaisin paikkakunnalle – jäsenyys jatkuu entisellä numerolla.",
        "Avainkortti halliin luovutettu.",
    });
    return s;
}

const QStringList &Sahkopostipalvelut()
{
    static const QStringList s = lista({"example.com", "example.net", "example.org", "posti.example.com", "mail.example.net"});
    return s;
}

const QStringList &Joukkueet()
{
    static const QStringList s = lista({
        "Edustusjoukkue", "Naisten joukkue", "Pojat P2013", "Tytöt T2013", "Pojat P2015", "Harrasteryhmä",
        "Ikämiehet M45", "Kuntoliikunta",
    });
    return s;
}

const QStringList &Hallitustehtavat()
{
    static const QStringList s = lista({
        "Puheenjohtaja", "Varapuheenjohtaja", "Sihteeri", "Rahastonhoitaja", "Jäsensihteeri",
        "Nuorisovastaava", "Tiedottaja", "Varajäsen",
    });
    return s;
}

const QStringList &Toimihenkilotehtavat()
{
    static const QStringList s = lista({
        "Kioskivastaava", "Kenttävastaava", "Joukkueenjohtaja", "Huoltaja", "Varustevastaava",
        "Kilpailusihteeri", "Toiminnanjohtaja",
    });
    return s;
}

} // namespace esittely
