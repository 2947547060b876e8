#include "ProgramOptions.h"

#include "DevicePaths.h"
#include "PomwickVersion.h"

#include <cstdio>

namespace pomwick {
namespace {

void print(FILE* stream, const QString& text) {
    std::fputs(text.toLocal8Bit().constData(), stream);
}

} // namespace

ProgramOptions::ProgramOptions(const QString& program, const QString& description)
    : program_(program), root_(QStringLiteral("root"), tr("the device root"), tr("folder")),
      help_(QStringList{QStringLiteral("h"), QStringLiteral("help")}, tr("show this help")),
      version_(QStringLiteral("version"), tr("show the version")) {
    parser_.setApplicationDescription(description);
    // A value may begin with "-" (a negative number): after the first argument that is not an
    // option, everything is an argument.
    parser_.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    addOptions({root_, help_, version_});
}

void ProgramOptions::addOptions(const QList<QCommandLineOption>& options) {
    for (const QCommandLineOption& option : options) {
        parser_.addOption(option);
        if (!option.valueName().isEmpty())
            valueOptions_.append(option);
    }
}

std::optional<int> ProgramOptions::parse(const QStringList& arguments) {
    if (!parser_.parse(arguments)) {
        if (!parser_.unknownOptionNames().isEmpty()) {
            const QString name = parser_.unknownOptionNames().constFirst();
            return usageError(
                tr("unknown option '%1%2'")
                    .arg(name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--"), name));
        }
        // The only other failure: an option that takes a value came last, without one.
        const QString last = arguments.constLast();
        for (const QCommandLineOption& option : std::as_const(valueOptions_)) {
            for (const QString& name : option.names())
                if (last == QStringLiteral("--") + name)
                    return usageError(tr("%1 needs a %2").arg(last, option.valueName()));
        }
        return usageError(parser_.errorText());
    }
    if (parser_.isSet(help_)) {
        print(stdout, helpText());
        return 0;
    }
    if (parser_.isSet(version_)) {
        print(stdout, QStringLiteral("%1 %2\n").arg(program_, QLatin1String(productVersion)));
        return 0;
    }
    if (parser_.isSet(root_) && parser_.value(root_).isEmpty())
        return usageError(tr("--root needs a folder"));
    return std::nullopt;
}

std::optional<int> ProgramOptions::selectDeviceRoot() const {
    std::optional<std::string> root;
    if (parser_.isSet(root_))
        root = parser_.value(root_).toStdString();
    if (const auto refused = DeviceRoot::select(root))
        return failure(QString::fromStdString(*refused));
    return std::nullopt;
}

int ProgramOptions::usageError(const QString& problem) const {
    print(stderr, tr("%1: %2 (see '%1 --help')\n").arg(program_, problem));
    return wrongCommandLine;
}

int ProgramOptions::failure(const QString& problem) const {
    print(stderr, QStringLiteral("%1: %2\n").arg(program_, problem));
    return operationFailed;
}

QString ProgramOptions::helpText() const {
    const std::string fallback = DeviceRoot::defaultRoot().string();
    return parser_.helpText() +
           tr("\nThe device root is --root DIR, else $POMWICK_ROOT, else %1.\n")
               .arg(fallback.empty() ? tr("(none: no home folder)")
                                     : QString::fromStdString(fallback));
}

} // namespace pomwick
