#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvana
{

/// The formats that an erase can give to a disk; each has a limit for names.
enum class EraseFormat { Ext4, Xfs, ExFat };

/// Returns the format that the text of a setting names: "xfs" or "exfat". Any other text gives ext4.
EraseFormat eraseFormatOf(std::string_view setting);

/// Returns the value of the environment variable ORVANA_FILE_SYSTEM, or nullopt if it is not set.
std::optional<std::string> eraseFormatSetting();

/// Returns the format that disks get on this machine, according to that setting.
EraseFormat eraseFormat();

/// The texts that stand in a bay's name field instead of a volume's name.
inline constexpr const char *NoVolume = "None";
inline constexpr const char *UnformattedDisk = "Unformatted";

/// Why a disk may not be given a name.
enum class NameRefusalReason {
    Empty,
    Reserved,   ///< ".", "..", "None" or "Unformatted"
    Separator,  ///< holds "/" or NUL
    TooLong,    ///< over the format's limit
    NotText,    ///< not UTF-8, or with characters that cannot be shown as they are on a line of text
    OfSource,   ///< the source has this name
    LostBlanks, ///< leading, trailing or repeated blanks; the list of mounted volumes loses them
    Blanks,     ///< the format allows no blanks at all
};

/// Returns why an erase may not give the name, or nullopt if it may. Window, terminal and disk utility all
/// use this function.
std::optional<NameRefusalReason> refusalOfName(const std::string &name, EraseFormat format);

/// "longer than 16 bytes, which is the limit of ext4"
std::string reasonText(NameRefusalReason reason, EraseFormat format);

} // namespace orvana
