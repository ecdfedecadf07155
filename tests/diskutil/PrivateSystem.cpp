#include "diskutil/PrivateSystem.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace orvana::test
{

bool hasPrivateSystem()
{
    return std::getenv("ORVANA_PRIVATE_SYSTEM") != nullptr;
}

bool hasPlayedAuthority()
{
    return hasPrivateSystem() && std::getenv("ORVANA_PLAYED_POLKIT") != nullptr;
}

bool hasNoDiskService()
{
    return hasPrivateSystem() && std::getenv("ORVANA_NO_DISK_SERVICE") != nullptr;
}

namespace
{

std::string tellAuthority(const std::string &words)
{
    return must("dbus-send --system --print-reply --dest=org.freedesktop.PolicyKit1 "
                "/org/freedesktop/PolicyKit1/Authority org.freedesktop.DBus.Mock." +
                words);
}

std::string listOf(const std::vector<std::string> &actions)
{
    std::string list;
    for (const auto &action : actions)
        list.append(list.empty() ? "" : ",").append("org.freedesktop.udisks2.").append(action);
    return "array:string:" + list;
}

} // namespace

void setAuthority(Authority answer)
{
    tellAuthority("AllowUnknown boolean:" + std::string(answer == Authority::Allows ? "true" : "false"));
}

void allowOnly(const std::vector<std::string> &actions)
{
    setAuthority(Authority::Denies);
    tellAuthority("SetAllowed " + listOf(actions));
}

void askFor(const std::vector<std::string> &actions, Answers answers)
{
    tellAuthority("SetAsked " + listOf(actions));
    tellAuthority(std::string("LetQuestionsStand boolean:") +
                  (answers == Answers::WhenGiven ? "true" : "false"));
}

bool doesQuestionStand()
{
    return tellAuthority("Questions").find("int32 0") == std::string::npos;
}

bool doesServiceAsk()
{
    return tellAuthority("DoesServiceAsk").find("boolean true") != std::string::npos;
}

void answerQuestions(bool yes)
{
    tellAuthority(std::string("Answer boolean:") + (yes ? "true" : "false"));
}

Said runDiskUtility(const std::vector<std::string> &words, const std::string &bays, const std::string &user)
{
    std::string command = "ORVANA_IMAGE_BAYS=" + asWord(bays);
    if (!user.empty())
        command += " setpriv --reuid=" + user + " --regid=nogroup --clear-groups";
    command += " " + asWord(IMAGE_DISK_UTILITY);
    for (const auto &word : words)
        command.append(" ").append(asWord(word));
    return runShell(command);
}

Said runInstalledDiskUtility(const std::vector<std::string> &words)
{
    auto command = asWord(INSTALLED_DISK_UTILITY);
    for (const auto &word : words)
        command.append(" ").append(asWord(word));
    return runShell(command);
}

// The test must not change the real folder of programs, so it mounts the helper over that folder.
MountHelper::MountHelper(const std::string &type, const std::string &program)
{
    const std::string layer = "/run/mount-helper";
    must("mkdir -p " + layer + " && ln -sfn " + program + " " + layer + "/mount." + type);
    must("mount -t overlay overlay -o lowerdir=" + layer + ":$(realpath /sbin) $(realpath /sbin)");
}

// A helper may run for a moment after its last volume is unmounted.
MountHelper::~MountHelper()
{
    if (const auto said = runShell("umount -l $(realpath /sbin) && rm -r /run/mount-helper");
        said.status != 0)
        ADD_FAILURE() << said.text;
}

} // namespace orvana::test
