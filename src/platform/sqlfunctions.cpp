#include "platform/sqlfunctions.h"

#include <QCollator>
#include <QLocale>
#include <QString>
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

void fnLike(sqlite3_context *ctx, int argc, sqlite3_value **argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL || sqlite3_value_type(argv[1]) == SQLITE_NULL) {
        sqlite3_result_null(ctx);
        return;
    }
    const QString pattern = argText(argv[0]);
    const QString text = argText(argv[1]);
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
    sqlite3_result_int(ctx, likeMatch(pattern, 0, text, 0, esc, hasEsc) ? 1 : 0);
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
