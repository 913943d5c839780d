#include "platform/sqlfunctions.h"

#include <QCollator>
#include <QLocale>
#include <QString>
#include <optional>
#include <sqlite3.h>

namespace db {
namespace {

QCollator &finnishCollator()
{
    thread_local QCollator c = [] {
        QCollator col(QLocale(QLocale::Finnish, QLocale::Finland));
        col.setCaseSensitivity(Qt::CaseInsensitive);
        col.setNumericMode(false);
        return col;
    }();
    return c;
}

int collateFi(void *, int alen, const void *a, int blen, const void *b)
{
    return finnishCompare(static_cast<const char *>(a), alen, static_cast<const char *>(b), blen);
}

QString argText(sqlite3_value *v)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_value_text(v)), sqlite3_value_bytes(v));
}

void resultText(sqlite3_context *ctx, const QString &s)
{
    const QByteArray u = s.toUtf8();
    sqlite3_result_text(ctx, u.constData(), int(u.size()), SQLITE_TRANSIENT);
}

void fnUpper(sqlite3_context *ctx, int, sqlite3_value **argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) {
        sqlite3_result_null(ctx);
        return;
    }
    resultText(ctx, argText(argv[0]).toUpper());
}

void fnLower(sqlite3_context *ctx, int, sqlite3_value **argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) {
        sqlite3_result_null(ctx);
        return;
    }
    resultText(ctx, argText(argv[0]).toLower());
}

void fnYear(sqlite3_context *ctx, int, sqlite3_value **argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) {
        sqlite3_result_null(ctx);
        return;
    }
    const QString t = argText(argv[0]);
    bool ok = false;
    const int y = t.left(4).toInt(&ok);
    if (ok && t.size() >= 4)
        sqlite3_result_int(ctx, y);
    else
        sqlite3_result_null(ctx);
}

// Case-insensitive LIKE over whole Unicode: % any run, _ one character, optional escape.
bool likeMatch(const QString &pat, int pi, const QString &str, int si, QChar esc, bool hasEsc)
{
    while (pi < pat.size()) {
        QChar p = pat[pi];
        if (hasEsc && p == esc && pi + 1 < pat.size()) {
            if (si >= str.size() || pat[pi + 1].toCaseFolded() != str[si].toCaseFolded())
                return false;
            pi += 2;
            ++si;
            continue;
        }
        if (p == QLatin1Char('%')) {
            while (pi < pat.size() && pat[pi] == QLatin1Char('%'))
                ++pi;
            if (pi == pat.size())
                return true;
            for (int k = si; k <= str.size(); ++k)
                if (likeMatch(pat, pi, str, k, esc, hasEsc))
                    return true;
            return false;
        }
        if (si >= str.size())
            return false;
        if (p != QLatin1Char('_') && p.toCaseFolded() != str[si].toCaseFolded())
            return false;
        ++pi;
        ++si;
    }
    return si == str.size();
}

// A pattern as the statement binds it, read once per statement instead of once per row. The
// common searches ("%part%", "start%", "%end", an exact text, escapes allowed) take a direct
// case-insensitive test; anything else the general matcher.
struct LikeKuvio {
    enum class Laji { Yleinen, Sisaltaa, Alkaa, Loppuu, Yhtasuuri };
    QString kuvio;
    QChar esc;
    bool hasEsc = false;
    Laji laji = Laji::Yleinen;
    QString osa; // the literal text of the direct tests
    QByteArray osaAscii; // the same in lower case when it is plain ASCII; empty otherwise
};

LikeKuvio *teeKuvio(const QString &pattern, QChar esc, bool hasEsc)
{
    auto *k = new LikeKuvio;
    k->kuvio = pattern;
    k->esc = esc;
    k->hasEsc = hasEsc;
    const qsizetype n = pattern.size();
    qsizetype i = 0;
    while (i < n && pattern[i] == QLatin1Char('%'))
        ++i;
    const bool alussa = i > 0;
    bool lopussa = false;
    QString osa;
    while (i < n) {
        const QChar c = pattern[i];
        if (hasEsc && c == esc) {
            if (i + 1 >= n)
                return k;
            osa += pattern[i + 1];
            i += 2;
        } else if (c == QLatin1Char('%')) {
            while (i < n && pattern[i] == QLatin1Char('%'))
                ++i;
            if (i < n)
                return k;
            lopussa = true;
        } else if (c == QLatin1Char('_')) {
            return k;
        } else {
            osa += c;
            ++i;
        }
    }
    using L = LikeKuvio::Laji;
    k->laji = alussa ? (lopussa ? L::Sisaltaa : L::Loppuu) : (lopussa ? L::Alkaa : L::Yhtasuuri);
    k->osa = osa;
    bool ascii = true;
    for (QChar c : osa)
        ascii = ascii && c.unicode() < 0x80;
    if (ascii)
        k->osaAscii = osa.toLatin1().toLower();
    return k;
}

// The direct tests of a plain ASCII pattern on the text's UTF-8 bytes, skipping its conversion:
// no byte of another letter can equal an ASCII one. Only the Kelvin sign and the long s fold to
// ASCII letters; a text with their lead bytes (E2, C5) takes the full test. Nothing when the
// pattern is not plain ASCII.
std::optional<bool> sovitaAscii(const LikeKuvio &k, const unsigned char *t, int n)
{
    if (k.laji == LikeKuvio::Laji::Yleinen || (k.osaAscii.isEmpty() && !k.osa.isEmpty()))
        return std::nullopt;
    for (int i = 0; i < n; ++i)
        if (t[i] == 0xE2 || t[i] == 0xC5)
            return std::nullopt;
    const char *o = k.osaAscii.constData();
    const int m = int(k.osaAscii.size());
    auto sama = [&](int kohta) {
        for (int j = 0; j < m; ++j) {
            unsigned char c = t[kohta + j];
            if (c >= 'A' && c <= 'Z')
                c |= 0x20;
            if (c != static_cast<unsigned char>(o[j]))
                return false;
        }
        return true;
    };
    if (m > n)
        return false;
    switch (k.laji) {
    case LikeKuvio::Laji::Sisaltaa:
        for (int kohta = 0; kohta + m <= n; ++kohta)
            if (sama(kohta))
                return true;
        return false;
    case LikeKuvio::Laji::Alkaa: return sama(0);
    case LikeKuvio::Laji::Loppuu: return sama(n - m);
    case LikeKuvio::Laji::Yhtasuuri: return m == n && sama(0);
    case LikeKuvio::Laji::Yleinen: break;
    }
    return std::nullopt;
}

bool sovita(const LikeKuvio &k, const QString &text)
{
    switch (k.laji) {
    case LikeKuvio::Laji::Sisaltaa: return text.contains(k.osa, Qt::CaseInsensitive);
    case LikeKuvio::Laji::Alkaa: return text.startsWith(k.osa, Qt::CaseInsensitive);
    case LikeKuvio::Laji::Loppuu: return text.endsWith(k.osa, Qt::CaseInsensitive);
    case LikeKuvio::Laji::Yhtasuuri: return text.compare(k.osa, Qt::CaseInsensitive) == 0;
    case LikeKuvio::Laji::Yleinen: break;
    }
    return likeMatch(k.kuvio, 0, text, 0, k.esc, k.hasEsc);
}

void fnLike(sqlite3_context *ctx, int argc, sqlite3_value **argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL || sqlite3_value_type(argv[1]) == SQLITE_NULL) {
        sqlite3_result_null(ctx);
        return;
    }
    auto *k = static_cast<LikeKuvio *>(sqlite3_get_auxdata(ctx, 0));
    if (!k) {
        QChar esc;
        bool hasEsc = false;
        if (argc == 3 && sqlite3_value_type(argv[2]) != SQLITE_NULL) {
            const QString e = argText(argv[2]);
            if (e.size() != 1) {
                sqlite3_result_error(ctx, "ESCAPE expression must be a single character", -1);
                return;
            }
            esc = e[0];
            hasEsc = true;
        }
        k = teeKuvio(argText(argv[0]), esc, hasEsc);
        const bool tulos = sovita(*k, argText(argv[1]));
        // SQLite keeps it while the pattern stays the same, or deletes it at once.
        sqlite3_set_auxdata(ctx, 0, k, [](void *p) { delete static_cast<LikeKuvio *>(p); });
        sqlite3_result_int(ctx, tulos ? 1 : 0);
        return;
    }
    const auto *t = sqlite3_value_text(argv[1]);
    if (const auto suora = sovitaAscii(*k, t, sqlite3_value_bytes(argv[1])))
        sqlite3_result_int(ctx, *suora ? 1 : 0);
    else
        sqlite3_result_int(ctx, sovita(*k, argText(argv[1])) ? 1 : 0);
}

} // namespace

int finnishCompare(const char *a, int alen, const char *b, int blen)
{
    const QString sa = QString::fromUtf8(a, alen);
    const QString sb = QString::fromUtf8(b, blen);
    return finnishCollator().compare(sa, sb);
}

void registerSqlFunctions(sqlite3 *db)
{
    sqlite3_create_collation(db, "FI", SQLITE_UTF8, nullptr, collateFi);
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3_create_function(db, "upper", 1, flags, nullptr, fnUpper, nullptr, nullptr);
    sqlite3_create_function(db, "lower", 1, flags, nullptr, fnLower, nullptr, nullptr);
    sqlite3_create_function(db, "year", 1, flags, nullptr, fnYear, nullptr, nullptr);
    sqlite3_create_function(db, "like", 2, flags, nullptr, fnLike, nullptr, nullptr);
    sqlite3_create_function(db, "like", 3, flags, nullptr, fnLike, nullptr, nullptr);
}

} // namespace db
