#pragma once

#include <QString>
#include <QStringList>
#include <QTranslator>

/// The languages of the window. The terminal, the logs and the reports are always in English.
namespace orvana
{

/// The languages into which the window's texts are translated, as in the names of the .ts files: "de",
/// "zh_CN".
QStringList translatedLanguages();

/// Returns the first of the user's languages in which the window can speak, or an empty text for English.
/// `wanted` holds names like "de-AT" or "zh-Hans-CN", the most wanted first.
QString languageFor(const QStringList &wanted);

/// Returns the language that the desktop asks for with LANGUAGE, LC_ALL, LC_MESSAGES or LANG, as
/// `languageFor` returns it.
QString usersLanguage();

/// While this object lives, windows that are made show their texts, and Qt's, in its language. Needs an
/// application object. Main thread only.
class WindowLanguage
{
public:
    /// `language` is one of `translatedLanguages`, or empty for English.
    explicit WindowLanguage(const QString &language);

private:
    // A translator leaves the application when it is destroyed.
    QTranslator m_toolkit;
    QTranslator m_window;
};

} // namespace orvana
