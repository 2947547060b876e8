#pragma once

#include <QLocale>
#include <QTranslator>

namespace pomwick {

// Installs the translation for the first of the locale's languages that Pomwick ships (the
// environment's LANGUAGE, LC_ALL, LC_MESSAGES and LANG, through QLocale::system()), and lays the
// application out in that language's direction. Returns the installed translator, owned by the
// application, or nullptr when no shipped language fits: the texts stay English, left to right.
// Deleting it takes the language back out.
QTranslator* installTranslations(const QLocale& locale = QLocale::system());

} // namespace pomwick
