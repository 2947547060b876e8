#include "Translations.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace pomwick {

QTranslator* installTranslations(const QLocale& locale) {
    // The translations are compiled into the programs: no install prefix can lose them.
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (!translator->load(locale, QStringLiteral("pomwick"), QStringLiteral("_"),
                          QStringLiteral(":/translations"))) {
        delete translator;
        return nullptr;
    }
    QCoreApplication::installTranslator(translator);
    // Qt's own texts in the same language (a field's context menu), where the system has them;
    // they go with ours.
    const QLocale language(translator->language());
    auto* qt = new QTranslator(translator);
    if (qt->load(language, QStringLiteral("qtbase"), QStringLiteral("_"),
                 QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(qt);
    // Set, not guessed: the rows lay themselves out by the direction of the language they show.
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr)
        QGuiApplication::setLayoutDirection(language.textDirection());
    return translator;
}

} // namespace pomwick
