#pragma once
// Lets GoogleTest print QString values as readable text in failure messages.
#include <QString>
#include <ostream>

inline void PrintTo(const QString& s, std::ostream* os)
{
    QString shown = s;
    shown.replace(QLatin1Char('\r'), QLatin1String("\\r"))
        .replace(QLatin1Char('\n'), QLatin1String("\\n"));
    *os << '"' << shown.toStdString() << '"';
}
