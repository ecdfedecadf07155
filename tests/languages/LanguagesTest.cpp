#include "languages/Languages.h"

#include "app/RunWords.h"
#include "ui/CoreWords.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <gtest/gtest.h>

namespace orvana
{

namespace
{

// The language for these wanted ones, separated by blanks.
std::string chosen(const char *wanted)
{
    return languageFor(QString::fromLatin1(wanted).split(QChar(u' '), Qt::SkipEmptyParts)).toStdString();
}

std::string verifying()
{
    return RunWords::nameOf(RunStage::Verifying).toStdString();
}

std::string words(const std::string &text)
{
    return coreWords(text).toStdString();
}

TEST(Languages, AreTheseFive)
{
    EXPECT_EQ(translatedLanguages().join(QChar(u' ')).toStdString(), "de es fr ja zh_CN");
}

TEST(Languages, FirstWantedLanguageThatThereIsCounts)
{
    EXPECT_EQ(chosen("de-AT de"), "de");
    EXPECT_EQ(chosen("nl-NL fr-CA de"), "fr");
    EXPECT_EQ(chosen("nl-NL"), "");
    EXPECT_EQ(chosen(""), "");
}

TEST(Languages, WhoWantsEnglishFirstGetsNoOther)
{
    EXPECT_EQ(chosen("en-US de-DE"), "");
    EXPECT_EQ(chosen("C"), "");
}

TEST(Languages, ChineseIsTheSimplifiedOne)
{
    EXPECT_EQ(chosen("zh-Hans-CN zh-CN zh"), "zh_CN");
    EXPECT_EQ(chosen("zh-Hans-SG"), "zh_CN");
    EXPECT_EQ(chosen("zh-Hant-TW"), "");
}

TEST(Languages, TextsAreInTheLanguageWhileItsObjectLives)
{
    {
        const WindowLanguage german(QStringLiteral("de"));
        EXPECT_EQ(verifying(), "Prüft");
    }
    EXPECT_EQ(verifying(), "Verifying");
}

TEST(Languages, WhatADiskSaysOfItselfIsTranslatedPhraseByPhrase)
{
    EXPECT_EQ(words("warning: 12 bad sectors, 71 °C"), "warning: 12 bad sectors, 71 °C");
    const WindowLanguage german(QStringLiteral("de"));
    EXPECT_EQ(words("not known"), "nicht bekannt");
    EXPECT_EQ(words("good, 31 °C, 1200 hours"), "gut, 31 °C, 1200 Stunden");
    EXPECT_EQ(words("warning: 12 bad sectors, hot, 71 °C, the link is down to 1.5 Gbps, 1 hour"),
              "Warnung: 12 defekte Sektoren, heiß, 71 °C, die Verbindung läuft nur mit 1.5 Gbps, 1 Stunde");
    EXPECT_EQ(words("it calls itself failing: 2000 bad sectors"),
              "sie meldet sich selbst defekt: 2000 defekte Sektoren");
    EXPECT_EQ(words("calls itself failing: reliability degraded, 1 new error"),
              "meldet sich selbst defekt: reliability degraded, 1 neuer Fehler");
}

TEST(Languages, UnknownLanguageIsEnglish)
{
    const WindowLanguage unknown(QStringLiteral("tlh"));
    EXPECT_EQ(verifying(), "Verifying");
}

TEST(Languages, CountsTakeTheirPluralForm)
{
    const WindowLanguage spanish(QStringLiteral("es"));
    EXPECT_EQ(RunWords::failed(1).toStdString(), "1 fallido");
    EXPECT_EQ(RunWords::failed(12).toStdString(), "12 fallidos");
}

TEST(CoreWords, TextWithoutALanguageIsAsItIs)
{
    EXPECT_EQ(words("Slot-B (COPY): its volume is not mounted"), "Slot-B (COPY): its volume is not mounted");
    EXPECT_EQ(words("one\ntwo"), "one\ntwo");
    EXPECT_EQ(words(""), "");
}

TEST(CoreWords, ReasonsAreTranslatedLineByLineAndNamesAreNot)
{
    const WindowLanguage german(QStringLiteral("de"));
    EXPECT_EQ(words("Slot-B (its volume is not mounted): its volume is not mounted\nSlot-C: it is odd"),
              "Slot-B (its volume is not mounted): ihr Volume ist nicht eingehängt\nSlot-C: it is odd");
}

TEST(CoreWords, ControlCharactersOfANameAreNotShown)
{
    EXPECT_EQ(words("Slot-B (a\x1b[31m)"), "Slot-B (a\\x1B[31m)");
    EXPECT_EQ(runMessage("Duplicating /a\nb\x1b[31m").toStdString(), "Duplicating /a\\x0Ab\\x1B[31m");
}

TEST(CoreWords, PathOfAMessageIsNeverTranslated)
{
    const WindowLanguage german(QStringLiteral("de"));
    EXPECT_EQ(runMessage("Duplicating /Volumes/A: it carries the source").toStdString(),
              "Dupliziert /Volumes/A: it carries the source");
    EXPECT_EQ(runMessage("Verifying File ... Failed").toStdString(), "Datei wird geprüft ... fehlgeschlagen");
    EXPECT_EQ(words("Mount Rainier: its volume is not mounted"),
              "Mount Rainier: ihr Volume ist nicht eingehängt");
}

TEST(CoreWords, FixedNamesAreTranslatedForPaintingAlone)
{
    const WindowLanguage french(QStringLiteral("fr"));
    EXPECT_EQ(paintedText(QStringLiteral("Unformatted")).toStdString(), "Non formaté");
    EXPECT_EQ(paintedText(QStringLiteral("Unformatted 2")).toStdString(), "Unformatted 2");
}

TEST(CoreWords, TextIsIsolatedWhereTheOtherDirectionIsNear)
{
    const auto size = QStringLiteral("1.82 TB");
    EXPECT_EQ(isolated(size), size);
    const QString hebrew(QChar(0x05D0));
    EXPECT_EQ(isolated(hebrew), QChar(0x2068) + hebrew + QChar(0x2069));
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(isolated(size), QChar(0x2068) + size + QChar(0x2069));
    EXPECT_TRUE(isolated(QString()).isEmpty());
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

} // namespace

} // namespace orvana
