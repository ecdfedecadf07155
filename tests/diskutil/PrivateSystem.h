#pragma once

#include "support/Shell.h"

#include <vector>

namespace orvana::test
{

/// True when this process runs on a system of its own. Its mounts and device events stay there.
bool hasPrivateSystem();

/// The reason why there is no such system.
inline constexpr const char *MissingSystem =
    "needs root with namespaces and loop devices, and the packages udev, udisks2 and dbus";

/// True when an authority that the test plays decides about permissions.
bool hasPlayedAuthority();

/// True when there is no disk service.
bool hasNoDiskService();

enum class Authority { Allows, Denies };

/// Sets the answer of the played authority to every request of an ordinary user.
void setAuthority(Authority answer);

/// Makes the played authority allow only these actions of the disk service, such as "modify-device".
void allowOnly(const std::vector<std::string> &actions);

/// Makes the played authority ask the user about these actions. The answer comes at once and is yes, or it
/// comes when the test gives it.
enum class Answers { AtOnce, WhenGiven };
void askFor(const std::vector<std::string> &actions, Answers answers);
bool doesQuestionStand();
bool doesServiceAsk(); ///< true when the disk service asked the open question
void answerQuestions(bool yes);

/// Runs the disk utility that treats the images in `bays` as disks; as `user` if one is named.
Said runDiskUtility(const std::vector<std::string> &words, const std::string &bays, const std::string &user);

/// Runs the disk utility as it is installed.
Said runInstalledDiskUtility(const std::vector<std::string> &words);

/// Installs a helper that mounts volumes of the type ("/sbin/mount.TYPE") until the object is destroyed.
class MountHelper
{
public:
    MountHelper(const std::string &type, const std::string &program);
    ~MountHelper();
    MountHelper(const MountHelper &) = delete;
    MountHelper &operator=(const MountHelper &) = delete;
};

} // namespace orvana::test
