#pragma once

#include "support/Shell.h"

#include <vector>

namespace orvana::test
{

/// True when this process runs on a system of its own: what is mounted and told there stays there.
bool hasPrivateSystem();

/// Why there is none.
inline constexpr const char *MissingSystem =
    "needs root with namespaces and loop devices, and the packages udev, udisks2 and dbus";

/// True when who may do what is decided by an authority that the test plays, or when there is no disk
/// service.
bool hasPlayedAuthority();
bool hasNoDiskService();

enum class Authority { Allows, Denies };

/// What the played authority says to everything that an ordinary user asks for.
void setAuthority(Authority answer);

/// Has the played authority allow these of the disk service's actions ("modify-device"), and nothing else.
void allowOnly(const std::vector<std::string> &actions);

/// Has it ask the user for these, whose answer comes at once (yes) or when the test gives it.
enum class Answers { AtOnce, WhenGiven };
void askFor(const std::vector<std::string> &actions, Answers answers);
bool doesQuestionStand();
bool doesServiceAsk(); ///< the question that stands is the disk service's
void answerQuestions(bool yes);

/// Runs the disk utility that takes images in `bays` for disks; as another user where one is named.
Said runDiskUtility(const std::vector<std::string> &words, const std::string &bays, const std::string &user);

/// Runs the disk utility as it is installed.
Said runInstalledDiskUtility(const std::vector<std::string> &words);

/// A program of the system's own that mounts volumes of the type ("/sbin/mount.TYPE") until the end of the
/// object.
class MountHelper
{
public:
    MountHelper(const std::string &type, const std::string &program);
    ~MountHelper();
    MountHelper(const MountHelper &) = delete;
    MountHelper &operator=(const MountHelper &) = delete;
};

} // namespace orvana::test
