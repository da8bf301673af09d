#pragma once

#include <QString>

namespace tv {

// Texts and control names of the settings forms are written as UTF-8 literals; a control
// array's member is named with its index in parentheses ("optX(3)").
inline QString S(const char* s)
{
    return QString::fromUtf8(s);
}

inline QString Idx(const char* name, int i)
{
    return S(name) + QStringLiteral("(%1)").arg(i);
}

} // namespace tv
