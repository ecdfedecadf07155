#include "languages/Languages.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>

// The macro must stand outside of any namespace.
static void initialise()
{
    Q_INIT_RESOURCE(languages);
}

namespace orvana
{

namespace
{

const auto Folder = QStringLiteral(":/languages/");
const auto Start = QStringLiteral("orvana-plurimo_");

// Chinese is written in two ways, and we know the simplified one.
QString codeOf(const QLocale &locale)
{
    if (locale.language() == QLocale::Chinese)
        return locale.script() == QLocale::SimplifiedHanScript ? QStringLiteral("zh_CN") : QString();
    return QLocale::languageToCode(locale.language());
}

} // namespace

QStringList translatedLanguages()
{
    initialise();
    QStringList languages;
    for (auto name : QDir(Folder).entryList({Start + QChar(u'*')}, QDir::Files, QDir::Name))
        languages += name.remove(Start).remove(QStringLiteral(".qm"));
    return languages;
}

QString languageFor(const QStringList &wanted)
{
    const auto known = translatedLanguages();
    for (const auto &name : wanted) {
        const QLocale locale(name);
        if (locale.language() == QLocale::English)
            return {};
        if (const auto code = codeOf(locale); known.contains(code))
            return code;
    }
    return {};
}

QString usersLanguage()
{
    return languageFor(QLocale::system().uiLanguages());
}

WindowLanguage::WindowLanguage(const QString &language)
{
    initialise();
    if (language.isEmpty() || !m_window.load(Start + language, Folder))
        return;
    // Qt's own texts stay English where their translations are not installed.
    if (m_toolkit.load(QStringLiteral("qtbase_") + language,
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_toolkit);
    QCoreApplication::installTranslator(&m_window);
}

} // namespace orvana
