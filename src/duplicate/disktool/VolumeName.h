#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvana
{

/// The formats that an erase can give to a disk; each has a limit for names.
enum class EraseFormat { Ext4, Xfs, ExFat };

/// The format of a setting's text: "xfs" or "exfat"; ext4 for anything else.
EraseFormat eraseFormatOf(std::string_view setting);

/// The setting of this machine, as it is written in the environment's ORVANA_FILE_SYSTEM.
std::optional<std::string> eraseFormatSetting();

/// The format that disks get on this machine, by that setting.
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
    NotText,    ///< not UTF-8, or with characters that no line of text shows as they are
    OfSource,   ///< the source is called so
    LostBlanks, ///< blanks at an end or in a row, which the list of mounted volumes does not keep
    Blanks,     ///< the format takes none at all
};

/// Why an erase may not give the name; nothing when it may. Window, terminal and disk utility all ask here.
std::optional<NameRefusalReason> refusalOfName(const std::string &name, EraseFormat format);

/// "longer than 16 bytes, which is the limit of ext4"
std::string reasonText(NameRefusalReason reason, EraseFormat format);

} // namespace orvana
