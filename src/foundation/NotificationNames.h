#pragma once

// Every notification of the program, and the one key that some of them carry in their user info.
// Names and keys are matched by their exact text; the irregular spellings are part of it.

namespace orvana::notification
{

// Copy engine
inline constexpr const char *FileCopyMessage = "FileCopyMessage";
inline constexpr const char *FileProgress = "FileProgress";
inline constexpr const char *TotalProgress = "TotalProgress";
inline constexpr const char *BackupFinish = "BackupFinish";

// Erase and eject
inline constexpr const char *DiskMessage = "DiskMessage";
inline constexpr const char *EraseDiskFinish = "EraseDiskFinish";

// Panels
inline constexpr const char *ClickStartBtn = "ClickStartBtnFormActionView";
inline constexpr const char *ClickVerifyBtn = "ClickVerifyBtnFormActionView";
inline constexpr const char *ClickEraseBtn = "ClickEraseBtnFormActionView";
inline constexpr const char *EjectSourceDisk = "EjectSourceDiskFormDiskInfoView";
inline constexpr const char *EjectTargetDisks = "EjectTargetDisksFormTDiskInfoView";
inline constexpr const char *SelectSourceDisk = "SelectSourceDiskFormDiskInfoView";
inline constexpr const char *SelectTBDevice = "SelectTBDeviceFormTBDevView";

// File tree
inline constexpr const char *UpdateDiskInfoColor = "UpdateDiskInFoColorFormFileListView";
inline constexpr const char *OutlineViewItemChange = "OutlineViewItemChange";
inline constexpr const char *OutlineViewItemStateChange = "OutlineViewItemStateChange";
inline constexpr const char *FileSizeChange = "FileSizeChange";

// Hot-plug monitor
inline constexpr const char *TBDeviceAttached = "TBDeviceAttached";
inline constexpr const char *TBDeviceDeattached = "TBDeviceDeattached";

// Volumes, posted on a notification centre of their own
inline constexpr const char *DidMount = "NSWorkspaceDidMountNotification";
inline constexpr const char *DidUnmount = "NSWorkspaceDidUnmountNotification";
inline constexpr const char *DidRenameVolume = "NSWorkspaceDidRenameVolumeNotification";

} // namespace orvana::notification

namespace orvana::notification::key
{

inline constexpr const char *MessageInfo = "MessageInfo";
inline constexpr const char *FileProgress = "FileProgress";
inline constexpr const char *TotalProrgress = "TotalProrgress";
inline constexpr const char *DiskMsgInfo = "DiskMsgInfo";

} // namespace orvana::notification::key
