// The text of names in archives.
#pragma once

#include <locale.h>

/// The library takes names for text in the thread's locale. For its lifetime this makes that UTF-8,
/// whatever the user's is.
class NamesInUtf8
{
public:
    NamesInUtf8() : _previous(uselocale(utf8())) {}
    ~NamesInUtf8() { uselocale(_previous); }
    NamesInUtf8(const NamesInUtf8 &) = delete;
    NamesInUtf8 &operator=(const NamesInUtf8 &) = delete;

private:
    static locale_t utf8()
    {
        static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t(nullptr));
        return locale;
    }

    const locale_t _previous;
};
