<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>BaySetupSheet</name>
    <message>
        <source>Set up bays - Orvana Plurimo</source>
        <translation>设置盘位 - Orvana Plurimo</translation>
    </message>
    <message>
        <source>Name of the &amp;enclosure:</source>
        <translation>硬盘盒名称(&amp;E)：</translation>
    </message>
    <message>
        <source>Name of the enclosure</source>
        <translation>硬盘盒名称</translation>
    </message>
    <message>
        <source>for example: Desk dock</source>
        <translation>例如：桌面底座</translation>
    </message>
    <message>
        <source>Bay A</source>
        <translation>盘位 A</translation>
    </message>
    <message>
        <source>Bay B</source>
        <translation>盘位 B</translation>
    </message>
    <message>
        <source>Bay C</source>
        <translation>盘位 C</translation>
    </message>
    <message>
        <source>Bay D</source>
        <translation>盘位 D</translation>
    </message>
    <message>
        <source>&amp;No such bay</source>
        <translation>没有此盘位(&amp;N)</translation>
    </message>
    <message>
        <source>The enclosure does not have the bay that is asked for</source>
        <translation>该硬盘盒没有所询问的盘位</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>完成(&amp;D)</translation>
    </message>
    <message>
        <source>Writes the enclosure</source>
        <translation>写入该硬盘盒</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>取消(&amp;C)</translation>
    </message>
</context>
<context>
    <name>CopyActionViewController</name>
    <message>
        <source>Options for this run</source>
        <translation>本次运行的选项</translation>
    </message>
</context>
<context>
    <name>Core</name>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Unformatted</source>
        <translation>未格式化</translation>
    </message>
    <message>
        <source>Select an Orvana Storage Device</source>
        <translation>选择 Orvana 存储设备</translation>
    </message>
    <message>
        <source>Source Disk (Slot-A)</source>
        <translation>源磁盘 (Slot-A)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-A)</source>
        <translation>目标磁盘 (Slot-A)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-B)</source>
        <translation>目标磁盘 (Slot-B)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-C)</source>
        <translation>目标磁盘 (Slot-C)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-D)</source>
        <translation>目标磁盘 (Slot-D)</translation>
    </message>
    <message>
        <source>Duplicating %1</source>
        <translation>正在复制 %1</translation>
    </message>
    <message>
        <source>Verifying File ...</source>
        <translation>正在校验文件……</translation>
    </message>
    <message>
        <source>Verifying File ... Failed</source>
        <translation>正在校验文件……失败</translation>
    </message>
    <message>
        <source>Verifying File ... Succeeded</source>
        <translation>正在校验文件……成功</translation>
    </message>
    <message>
        <source>Erasing the destination disks. The window answers again when it is done.</source>
        <translation>正在抹掉目标磁盘。完成后窗口才会响应。</translation>
    </message>
    <message>
        <source>Eject %1</source>
        <translation>弹出 %1</translation>
    </message>
    <message>
        <source>Mount %1</source>
        <translation>挂载 %1</translation>
    </message>
    <message>
        <source>You must select a Orvana Storage Device first.</source>
        <translation>请先选择一个 Orvana 存储设备。</translation>
    </message>
    <message>
        <source>The selected device is no longer there.</source>
        <translation>所选设备已不存在。</translation>
    </message>
    <message>
        <source>Another device has taken the place of the selected one.</source>
        <translation>另一台设备占用了所选设备的位置。</translation>
    </message>
    <message>
        <source>This device cannot be selected when it&apos;s used as a startup disk.</source>
        <translation>此设备用作启动盘，无法选择。</translation>
    </message>
    <message>
        <source>Nothing is selected to be copied, so no disk is erased.</source>
        <translation>未选择要复制的内容，因此不抹掉任何磁盘。</translation>
    </message>
    <message>
        <source>The source is not there any more, or another disk has taken its place. Nothing was touched. Choose the source again.</source>
        <translation>源盘已不存在，或被其他磁盘取代。未改动任何内容。请重新选择源盘。</translation>
    </message>
    <message>
        <source>The source is not there any more, or another disk has taken its place. Nothing was copied; the report says which disks were erased. Choose the source again.</source>
        <translation>源盘已不存在，或被其他磁盘取代。未复制任何内容；报告说明了哪些磁盘已被抹掉。请重新选择源盘。</translation>
    </message>
    <message>
        <source>A disk of the run before does not answer. Nothing was erased.</source>
        <translation>上次运行的某个磁盘没有响应。未抹掉任何内容。</translation>
    </message>
    <message>
        <source>The device is not the one that was chosen when the start began. Nothing was touched.</source>
        <translation>设备不是开始时所选的设备。未改动任何内容。</translation>
    </message>
    <message>
        <source>The disks are not those that were shown any more. Nothing was touched.</source>
        <translation>磁盘已不是所显示的磁盘。未改动任何内容。</translation>
    </message>
    <message>
        <source>it carries the source</source>
        <translation>它是源所在的磁盘</translation>
    </message>
    <message>
        <source>it cannot be told from a disk of the source</source>
        <translation>无法与源的磁盘区分</translation>
    </message>
    <message>
        <source>it is the start-up disk</source>
        <translation>它是启动盘</translation>
    </message>
    <message>
        <source>it belongs to a RAID set</source>
        <translation>它属于 RAID 组</translation>
    </message>
    <message>
        <source>it has no device node</source>
        <translation>它没有设备节点</translation>
    </message>
    <message>
        <source>another disk claims the same place</source>
        <translation>另一个磁盘占用同一位置</translation>
    </message>
    <message>
        <source>its volume has no name</source>
        <translation>其卷没有名称</translation>
    </message>
    <message>
        <source>its volume is not mounted</source>
        <translation>其卷未挂载</translation>
    </message>
    <message>
        <source>it is not the disk that was shown</source>
        <translation>它不是所显示的磁盘</translation>
    </message>
    <message>
        <source>its erase did not succeed</source>
        <translation>抹掉未成功</translation>
    </message>
    <message>
        <source>it no longer holds the volume that was shown</source>
        <translation>它不再包含所显示的卷</translation>
    </message>
    <message>
        <source>another run is at work on its volume</source>
        <translation>另一个运行正在使用其卷</translation>
    </message>
    <message>
        <source>its volume is mounted read-only</source>
        <translation>其卷以只读方式挂载</translation>
    </message>
    <message>
        <source>the selection does not fit</source>
        <translation>放不下所选内容</translation>
    </message>
    <message>
        <source>a bay before it shows the same name</source>
        <translation>前面的盘位有相同的名称</translation>
    </message>
    <message>
        <source>the erase was stopped before it</source>
        <translation>在此之前抹掉操作已停止</translation>
    </message>
    <message>
        <source>the disk utility could not be started</source>
        <translation>无法启动磁盘工具</translation>
    </message>
    <message>
        <source>a disk needs a name</source>
        <translation>磁盘需要名称</translation>
    </message>
    <message>
        <source>this cannot be the name of a disk</source>
        <translation>这不能作为磁盘名称</translation>
    </message>
    <message>
        <source>a name cannot hold &quot;/&quot;</source>
        <translation>名称不能包含“/”</translation>
    </message>
    <message>
        <source>a name is text on one line</source>
        <translation>名称是单行文本</translation>
    </message>
    <message>
        <source>this is the name of the source</source>
        <translation>这是源的名称</translation>
    </message>
    <message>
        <source>a name cannot begin or end with a blank, nor hold two in a row</source>
        <translation>名称不能以空格开头或结尾，也不能有连续空格</translation>
    </message>
    <message>
        <source>Not ejected:</source>
        <translation>未弹出：</translation>
    </message>
    <message>
        <source>Choose the enclosure first, and open the job when no run goes on.</source>
        <translation>请先选择硬盘盒，并在没有运行时打开任务。</translation>
    </message>
    <message>
        <source>Nothing is ticked, so there is no job to save.</source>
        <translation>未勾选任何内容，因此没有可保存的任务。</translation>
    </message>
    <message>
        <source>the job could not be written</source>
        <translation>无法写入任务</translation>
    </message>
    <message>
        <source>the source of the job is not there</source>
        <translation>任务的源不存在</translation>
    </message>
    <message>
        <source>two volumes have the id of the job&apos;s source</source>
        <translation>有两个卷具有任务源的标识</translation>
    </message>
    <message>
        <source>another source has the same name; rename one of them</source>
        <translation>另一个源有相同的名称；请重命名其中之一</translation>
    </message>
    <message>
        <source>no such file or folder in the source</source>
        <translation>源中没有此文件或文件夹</translation>
    </message>
    <message>
        <source>The demo cannot be started.</source>
        <translation>无法启动演示。</translation>
    </message>
    <message>
        <source>Disks are at work. Bays can be set up when that has ended.</source>
        <translation>磁盘正在工作。结束后可以设置盘位。</translation>
    </message>
    <message>
        <source>an enclosure needs two to four bays</source>
        <translation>硬盘盒需要两到四个盘位</translation>
    </message>
    <message>
        <source>an ASC MHL manifest cannot hold sha256 digests</source>
        <translation>ASC MHL 清单不能包含 sha256 摘要</translation>
    </message>
    <message>
        <source>a checksum file cannot hold c4 digests</source>
        <translation>校验和文件不能包含 c4 摘要</translation>
    </message>
    <message>
        <source>A run that goes on with the last one erases no disk. Switch one of the two off.</source>
        <translation>继续上次运行时不会抹掉磁盘。请关闭其中一项。</translation>
    </message>
    <message>
        <source>A production line is armed. Disarm it first.</source>
        <translation>生产线已布防。请先解除。</translation>
    </message>
    <message>
        <source>it was in the bay already</source>
        <translation>它早已在托架中</translation>
    </message>
    <message>
        <source>its countdown was stopped</source>
        <translation>其倒数已被停止</translation>
    </message>
    <message>
        <source>it has no serial number</source>
        <translation>它没有序列号</translation>
    </message>
    <message>
        <source>a disk with its serial number is in another bay</source>
        <translation>另一托架中有相同序列号的磁盘</translation>
    </message>
    <message>
        <source>as many disks as are wanted are done or in work</source>
        <translation>所需数量的磁盘已完成或在处理中</translation>
    </message>
    <message>
        <source>the line is paused</source>
        <translation>生产线已暂停</translation>
    </message>
    <message>
        <source>the line has ended</source>
        <translation>生产线已结束</translation>
    </message>
    <message>
        <source>no more disks were wanted for now</source>
        <translation>暂时不再需要磁盘</translation>
    </message>
    <message>
        <source>a line counts only disks that were verified; the job does not verify</source>
        <translation>生产线只计入已校验的磁盘；该任务不校验</translation>
    </message>
    <message>
        <source>a line begins each disk anew; the job goes on with the last run</source>
        <translation>生产线对每个磁盘从头开始；该任务会接续上次运行</translation>
    </message>
    <message>
        <source>the names of disks in two bays would be the same; put {n} or {bay} into the pattern</source>
        <translation>两个托架的磁盘名称会相同；请在模式中加入 {n} 或 {bay}</translation>
    </message>
    <message>
        <source>it calls itself failing</source>
        <translation>它自报故障</translation>
    </message>
    <message>
        <source>good</source>
        <translation>良好</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>calls itself failing</source>
        <translation>自身报告故障</translation>
    </message>
    <message>
        <source>1 bad sector</source>
        <translation>1 个坏扇区</translation>
    </message>
    <message>
        <source>%1 bad sectors</source>
        <translation>%1 个坏扇区</translation>
    </message>
    <message>
        <source>%1 of them new</source>
        <translation>其中 %1 个为新增</translation>
    </message>
    <message>
        <source>1 new error</source>
        <translation>1 个新错误</translation>
    </message>
    <message>
        <source>%1 new errors</source>
        <translation>%1 个新错误</translation>
    </message>
    <message>
        <source>hot</source>
        <translation>过热</translation>
    </message>
    <message>
        <source>its temperature is out of its own limits</source>
        <translation>温度超出其自身限制</translation>
    </message>
    <message>
        <source>the link is down to 1.5 Gbps</source>
        <translation>链路已降至 1.5 Gbps</translation>
    </message>
    <message>
        <source>1 value at its limit</source>
        <translation>1 个值达到极限</translation>
    </message>
    <message>
        <source>%1 values at its limit</source>
        <translation>%1 个值达到极限</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 小时</translation>
    </message>
    <message>
        <source>%1 hours</source>
        <translation>%1 小时</translation>
    </message>
</context>
<context>
    <name>DiskInfoViewController</name>
    <message>
        <source>So&amp;urce</source>
        <translation>源盘(&amp;U)</translation>
    </message>
    <message>
        <source>Source disk</source>
        <translation>源磁盘</translation>
    </message>
    <message>
        <source>Volume name of source</source>
        <translation>源的卷名</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>型号</translation>
    </message>
    <message>
        <source>Model of source</source>
        <translation>源的型号</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>序列号</translation>
    </message>
    <message>
        <source>Serial number of source</source>
        <translation>源的序列号</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>可用</translation>
    </message>
    <message>
        <source>Free space of source</source>
        <translation>源的可用空间</translation>
    </message>
    <message>
        <source>Capacity</source>
        <translation>容量</translation>
    </message>
    <message>
        <source>Capacity of source</source>
        <translation>源的容量</translation>
    </message>
    <message>
        <source>Slot-A</source>
        <translation>Slot-A</translation>
    </message>
    <message>
        <source>Volume name of bay A</source>
        <translation>盘位 A 的卷名</translation>
    </message>
    <message>
        <source>Model of bay A</source>
        <translation>盘位 A 的型号</translation>
    </message>
    <message>
        <source>Serial number of bay A</source>
        <translation>盘位 A 的序列号</translation>
    </message>
    <message>
        <source>Free space of bay A</source>
        <translation>盘位 A 的可用空间</translation>
    </message>
    <message>
        <source>Capacity of bay A</source>
        <translation>盘位 A 的容量</translation>
    </message>
    <message>
        <source>Does not fit</source>
        <translation>空间不足</translation>
    </message>
    <message>
        <source>Warning for bay A</source>
        <translation>盘位 A 的警告</translation>
    </message>
    <message>
        <source>RAID</source>
        <translation>RAID</translation>
    </message>
    <message>
        <source>RAID marker of bay A</source>
        <translation>盘位 A 的 RAID 标记</translation>
    </message>
    <message>
        <source>Slot-B</source>
        <translation>Slot-B</translation>
    </message>
    <message>
        <source>Volume name of bay B</source>
        <translation>盘位 B 的卷名</translation>
    </message>
    <message>
        <source>Model of bay B</source>
        <translation>盘位 B 的型号</translation>
    </message>
    <message>
        <source>Serial number of bay B</source>
        <translation>盘位 B 的序列号</translation>
    </message>
    <message>
        <source>Free space of bay B</source>
        <translation>盘位 B 的可用空间</translation>
    </message>
    <message>
        <source>Capacity of bay B</source>
        <translation>盘位 B 的容量</translation>
    </message>
    <message>
        <source>Warning for bay B</source>
        <translation>盘位 B 的警告</translation>
    </message>
    <message>
        <source>RAID marker of bay B</source>
        <translation>盘位 B 的 RAID 标记</translation>
    </message>
    <message>
        <source>Slot-C</source>
        <translation>Slot-C</translation>
    </message>
    <message>
        <source>Volume name of bay C</source>
        <translation>盘位 C 的卷名</translation>
    </message>
    <message>
        <source>Model of bay C</source>
        <translation>盘位 C 的型号</translation>
    </message>
    <message>
        <source>Serial number of bay C</source>
        <translation>盘位 C 的序列号</translation>
    </message>
    <message>
        <source>Free space of bay C</source>
        <translation>盘位 C 的可用空间</translation>
    </message>
    <message>
        <source>Capacity of bay C</source>
        <translation>盘位 C 的容量</translation>
    </message>
    <message>
        <source>Warning for bay C</source>
        <translation>盘位 C 的警告</translation>
    </message>
    <message>
        <source>RAID marker of bay C</source>
        <translation>盘位 C 的 RAID 标记</translation>
    </message>
    <message>
        <source>Slot-D</source>
        <translation>Slot-D</translation>
    </message>
    <message>
        <source>Volume name of bay D</source>
        <translation>盘位 D 的卷名</translation>
    </message>
    <message>
        <source>Model of bay D</source>
        <translation>盘位 D 的型号</translation>
    </message>
    <message>
        <source>Serial number of bay D</source>
        <translation>盘位 D 的序列号</translation>
    </message>
    <message>
        <source>Free space of bay D</source>
        <translation>盘位 D 的可用空间</translation>
    </message>
    <message>
        <source>Capacity of bay D</source>
        <translation>盘位 D 的容量</translation>
    </message>
    <message>
        <source>Warning for bay D</source>
        <translation>盘位 D 的警告</translation>
    </message>
    <message>
        <source>RAID marker of bay D</source>
        <translation>盘位 D 的 RAID 标记</translation>
    </message>
    <message>
        <source>E&amp;ject</source>
        <translation>弹出(&amp;J)</translation>
    </message>
    <message>
        <source>Eject source disk</source>
        <translation>弹出源磁盘</translation>
    </message>
    <message>
        <source>Eject the source disk</source>
        <translation>弹出源磁盘</translation>
    </message>
    <message>
        <source>Destinations</source>
        <translation>目标</translation>
    </message>
    <message>
        <source>Eject A&amp;ll</source>
        <translation>全部弹出(&amp;L)</translation>
    </message>
    <message>
        <source>Eject destination disks</source>
        <translation>弹出目标磁盘</translation>
    </message>
    <message>
        <source>Eject all destination disks</source>
        <translation>弹出所有目标磁盘</translation>
    </message>
</context>
<context>
    <name>FileListViewController</name>
    <message>
        <source>Files and folders to duplicate</source>
        <translation>要复制的文件和文件夹</translation>
    </message>
    <message>
        <source>Ticked files</source>
        <translation>已勾选的文件</translation>
    </message>
</context>
<context>
    <name>LogDataWindows</name>
    <message>
        <source>Run Logs</source>
        <translation>运行日志</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>Opens the folder of the logs in the file manager</source>
        <translation>在文件管理器中打开日志文件夹</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>Reads the folder of the logs again</source>
        <translation>重新读取日志文件夹</translation>
    </message>
    <message>
        <source>Logs</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>The newest log comes first. Backspace or Delete removes the selected one.</source>
        <translation>最新的日志在最前。按退格键或 Delete 键删除所选日志。</translation>
    </message>
    <message>
        <source>Find in the log</source>
        <translation>在日志中查找</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>上一个</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>查找上一个</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一个</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>查找下一个</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>未找到</translation>
    </message>
    <message>
        <source>Text of the log</source>
        <translation>日志正文</translation>
    </message>
    <message>
        <source>Delete All Logs</source>
        <translation>删除所有日志</translation>
    </message>
    <message>
        <source>Removes every log in the list and its report at once, without asking.</source>
        <translation>立即删除列表中的所有日志及其报告，不再询问。</translation>
    </message>
    <message>
        <source>Removes every log in the list and its report at once, without asking</source>
        <translation>立即删除列表中的所有日志及其报告，不再询问</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Orvana Plurimo</source>
        <translation>Orvana Plurimo</translation>
    </message>
    <message>
        <source>Progress message</source>
        <translation>进度消息</translation>
    </message>
    <message>
        <source>Stage of the run</source>
        <translation>运行阶段</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>所有文件</translation>
    </message>
    <message>
        <source>This file</source>
        <translation>当前文件</translation>
    </message>
    <message>
        <source>The whole run</source>
        <translation>整个运行</translation>
    </message>
    <message>
        <source>The current file</source>
        <translation>当前文件</translation>
    </message>
    <message>
        <source>Progress of the whole run</source>
        <translation>整个运行的进度</translation>
    </message>
    <message>
        <source>Progress of the current file</source>
        <translation>当前文件的进度</translation>
    </message>
    <message>
        <source>?</source>
        <translation>?</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>How to use Orvana Plurimo</source>
        <translation>如何使用 Orvana Plurimo</translation>
    </message>
</context>
<context>
    <name>NoEnclosureView</name>
    <message>
        <source>No enclosure was found.</source>
        <translation>未找到硬盘盒。</translation>
    </message>
    <message>
        <source>Set up &amp;bays...</source>
        <translation>设置盘位(&amp;B)...</translation>
    </message>
    <message>
        <source>Says which ports of a dock or a case are the bays of an enclosure</source>
        <translation>指定底座的哪些端口是硬盘盒的盘位</translation>
    </message>
    <message>
        <source>&amp;Try the demo</source>
        <translation>试用演示(&amp;T)</translation>
    </message>
    <message>
        <source>Opens a second window on a machine that is simulated</source>
        <translation>在模拟机器上打开第二个窗口</translation>
    </message>
</context>
<context>
    <name>Obsidio</name>
    <message>
        <source>Orvana Plurimo for Obsidio</source>
        <translation>Orvana Plurimo for Obsidio</translation>
    </message>
    <message>
        <source>Orvana Plurimo</source>
        <translation>Orvana Plurimo</translation>
    </message>
    <message>
        <source>?</source>
        <translation>?</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
</context>
<context>
    <name>ProgressBarViewController</name>
    <message>
        <source>Status</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Progress of the whole run</source>
        <translation>整个运行的进度</translation>
    </message>
    <message>
        <source>Progress of the current file</source>
        <translation>当前文件的进度</translation>
    </message>
</context>
<context>
    <name>RunReportWindow</name>
    <message>
        <source>Run Report - Orvana Plurimo</source>
        <translation>运行报告 - Orvana Plurimo</translation>
    </message>
    <message>
        <source>What each destination got</source>
        <translation>每个目标得到的内容</translation>
    </message>
    <message>
        <source>Files that failed or differ</source>
        <translation>失败或不一致的文件</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save the report file (JSON)</source>
        <translation>保存报告文件 (JSON)</translation>
    </message>
    <message>
        <source>Save as &amp;PDF</source>
        <translation>另存为 PDF(&amp;P)</translation>
    </message>
    <message>
        <source>Save a certificate for each disk as PDF</source>
        <translation>将每个磁盘的证书保存为 PDF</translation>
    </message>
    <message>
        <source>Save as &amp;HTML</source>
        <translation>另存为 HTML(&amp;H)</translation>
    </message>
    <message>
        <source>Save a certificate for each disk as HTML</source>
        <translation>将每个磁盘的证书保存为 HTML</translation>
    </message>
    <message>
        <source>Open &amp;log</source>
        <translation>打开日志(&amp;L)</translation>
    </message>
    <message>
        <source>Clos&amp;e</source>
        <translation>关闭(&amp;E)</translation>
    </message>
</context>
<context>
    <name>TBDeviceViewController</name>
    <message>
        <source>&amp;Not used...</source>
        <translation>未使用(&amp;N)...</translation>
    </message>
    <message>
        <source>Says why devices that are attached cannot be used</source>
        <translation>说明已连接的设备为何无法使用</translation>
    </message>
    <message>
        <source>Orvana storage device</source>
        <translation>Orvana 存储设备</translation>
    </message>
</context>
<context>
    <name>VersionWindow</name>
    <message>
        <source>Check for Updates</source>
        <translation>检查更新</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>orvana::BayRunView</name>
    <message>
        <source>Run of %1</source>
        <translation>%1的运行</translation>
    </message>
    <message>
        <source>State of %1</source>
        <translation>%1的状态</translation>
    </message>
    <message>
        <source>Progress of %1</source>
        <translation>%1的进度</translation>
    </message>
    <message>
        <source>Rate of %1</source>
        <translation>%1的速率</translation>
    </message>
    <message>
        <source>Time left for %1</source>
        <translation>%1的剩余时间</translation>
    </message>
</context>
<context>
    <name>orvana::BaySetupSheet</name>
    <message>
        <source>no such bay</source>
        <translation>没有此盘位</translation>
    </message>
    <message>
        <source>Put a disk into bay %1. If one is there already, take it out and put it in again.</source>
        <translation>请将磁盘放入盘位 %1。如果已有磁盘，请取出后重新放入。</translation>
    </message>
    <message>
        <source>All bays have been asked for. Press Cancel and begin again.</source>
        <translation>所有盘位都已询问。请按“取消”后重新开始。</translation>
    </message>
    <message>
        <source>All bays have been asked for.</source>
        <translation>所有盘位都已询问。</translation>
    </message>
    <message>
        <source>Type a name for the enclosure.</source>
        <translation>请输入硬盘盒的名称。</translation>
    </message>
    <message>
        <source>Waiting for the permission to write it ...</source>
        <translation>正在等待写入许可……</translation>
    </message>
    <message>
        <source>Done writes an enclosure with %1 bays.</source>
        <translation>按“完成”将写入一个有 %1 个盘位的硬盘盒。</translation>
    </message>
    <message>
        <source>waiting for a disk</source>
        <translation>等待磁盘</translation>
    </message>
</context>
<context>
    <name>orvana::CopyActionViewController</name>
    <message>
        <source>&amp;Erase destination disk(s)</source>
        <translation>抹掉目标磁盘(&amp;E)</translation>
    </message>
    <message>
        <source>Erase destination disk(s)</source>
        <translation>抹掉目标磁盘</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>校验(&amp;V)</translation>
    </message>
    <message>
        <source>Verify</source>
        <translation>校验</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>开始(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>取消(&amp;C)</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>orvana::DiskInfoViewController</name>
    <message>
        <source>bay %1</source>
        <translation>盘位 %1</translation>
    </message>
    <message>
        <source>(no name)</source>
        <translation>（无名称）</translation>
    </message>
</context>
<context>
    <name>orvana::FileListViewController</name>
    <message>
        <source>%1 File(s)     Size : %2</source>
        <translation>%1 个文件     大小：%2</translation>
    </message>
</context>
<context>
    <name>orvana::LineTile</name>
    <message>
        <source>Not armed</source>
        <translation>未布防</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>等待中</translation>
    </message>
    <message>
        <source>Looking</source>
        <translation>检查中</translation>
    </message>
    <message>
        <source>Not taken</source>
        <translation>未采用</translation>
    </message>
    <message>
        <source>Asking</source>
        <translation>等待确认</translation>
    </message>
    <message>
        <source>Begins in</source>
        <translation>开始倒数</translation>
    </message>
    <message>
        <source>Erasing</source>
        <translation>抹掉中</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>复制中</translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation>校验中</translation>
    </message>
    <message>
        <source>Ejecting</source>
        <translation>弹出中</translation>
    </message>
    <message>
        <source>Passed</source>
        <translation>合格</translation>
    </message>
    <message>
        <source>Not proven</source>
        <translation>未证实</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>Yes, write this disk</source>
        <translation>是，写入此磁盘</translation>
    </message>
    <message>
        <source>State of bay %1</source>
        <translation>托架 %1 的状态</translation>
    </message>
    <message>
        <source>Progress of bay %1</source>
        <translation>托架 %1 的进度</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>源</translation>
    </message>
</context>
<context>
    <name>orvana::LineWindow</name>
    <message>
        <source>Production Line</source>
        <translation>生产线</translation>
    </message>
    <message>
        <source>Each disk that comes into an armed bay gets this, and is verified: %1, files: %2, %3</source>
        <translation>进入已布防托架的每个磁盘都会写入以下内容并校验：%1，文件数：%2，%3</translation>
    </message>
    <message>
        <source>&amp;Line:</source>
        <translation>生产线(&amp;L)：</translation>
    </message>
    <message>
        <source>&amp;Title:</source>
        <translation>标题(&amp;T)：</translation>
    </message>
    <message>
        <source>&amp;Number of disks:</source>
        <translation>磁盘数量(&amp;N)：</translation>
    </message>
    <message>
        <source>May hold {n:03} for the number, {serial}, {bay} and {date}</source>
        <translation>可包含编号 {n:03}、{serial}、{bay} 和 {date}</translation>
    </message>
    <message>
        <source>N&amp;ames of the disks:</source>
        <translation>磁盘名称(&amp;A)：</translation>
    </message>
    <message>
        <source>Bay &amp;%1</source>
        <translation>托架 &amp;%1</translation>
    </message>
    <message>
        <source>Armed bays:</source>
        <translation>布防的托架：</translation>
    </message>
    <message>
        <source>A&amp;rm</source>
        <translation>布防(&amp;R)</translation>
    </message>
    <message>
        <source>Disks made</source>
        <translation>已完成的磁盘</translation>
    </message>
    <message>
        <source>No &amp;more disks</source>
        <translation>不再接受磁盘(&amp;M)</translation>
    </message>
    <message>
        <source>New line</source>
        <translation>新生产线</translation>
    </message>
    <message>
        <source>Disks are still in work.</source>
        <translation>仍有磁盘在处理中。</translation>
    </message>
    <message>
        <source>The words are &quot;%1&quot;.</source>
        <translation>需输入的文字是“%1”。</translation>
    </message>
    <message>
        <source>No bay is ticked.</source>
        <translation>没有勾选任何托架。</translation>
    </message>
    <message>
        <source>Any key, and any click beside a button, stops a countdown.</source>
        <translation>按任意键或点击按钮以外的地方可停止倒数。</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>&amp;Go on</source>
        <translation>继续(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>暂停(&amp;P)</translation>
    </message>
    <message>
        <source>No more disks are taken: %1</source>
        <translation>不再接受磁盘：%1</translation>
    </message>
    <message>
        <source>The window closes when the disks in work are done.</source>
        <translation>处理中的磁盘完成后窗口将关闭。</translation>
    </message>
    <message>
        <source>To be as&amp;ked about no disk&apos;s content, type &quot;%1&quot;:</source>
        <translation>如不需询问磁盘内容，请输入“%1”(&amp;K)：</translation>
    </message>
</context>
<context>
    <name>orvana::LogDataWindows</name>
    <message>
        <source>This log is long. Only its end is shown, at most the last 10 MB.</source>
        <translation>此日志很长。仅显示其末尾，最多最后 10 MB。</translation>
    </message>
</context>
<context>
    <name>orvana::MainMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Rescan</source>
        <translation>重新扫描(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Logs</source>
        <translation>日志(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Open job...</source>
        <translation>打开任务(&amp;O)...</translation>
    </message>
    <message>
        <source>&amp;Save job...</source>
        <translation>保存任务(&amp;S)...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>运行(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>开始(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>校验(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Erase Destination Disks</source>
        <translation>抹掉目标磁盘(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Options for this run...</source>
        <translation>本次运行的选项(&amp;O)...</translation>
    </message>
    <message>
        <source>E&amp;ject Source</source>
        <translation>弹出源盘(&amp;J)</translation>
    </message>
    <message>
        <source>Eject &amp;Destinations</source>
        <translation>弹出目标(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Mount disks</source>
        <translation>挂载磁盘(&amp;M)</translation>
    </message>
    <message>
        <source>Set up &amp;bays...</source>
        <translation>设置盘位(&amp;B)...</translation>
    </message>
    <message>
        <source>&amp;Last Report</source>
        <translation>上次报告(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;How to Use</source>
        <translation>使用说明(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Check for Updates</source>
        <translation>检查更新(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;About Orvana Plurimo</source>
        <translation>关于 Orvana Plurimo(&amp;A)</translation>
    </message>
    <message>
        <source>Verify dis&amp;ks...</source>
        <translation>校验磁盘(&amp;K)...</translation>
    </message>
    <message>
        <source>&amp;Go on with the last run</source>
        <translation>继续上次运行(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Production line...</source>
        <translation>生产线(&amp;P)...</translation>
    </message>
</context>
<context>
    <name>orvana::MainWindow</name>
    <message>
        <source>Orvana Plurimo, the disk duplicator</source>
        <translation>Orvana Plurimo，磁盘复制机</translation>
    </message>
    <message>
        <source>Version : %1</source>
        <translation>版本：%1</translation>
    </message>
    <message>
        <source>for Obsidio</source>
        <translation>for Obsidio</translation>
    </message>
    <message>
        <source>Not used</source>
        <translation>未使用</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Ejected</source>
        <translation>已弹出</translation>
    </message>
    <message>
        <source>These disks can be taken out: %1</source>
        <translation>可以取出以下磁盘：%1</translation>
    </message>
    <message>
        <source>Nothing to mount</source>
        <translation>没有可挂载的内容</translation>
    </message>
    <message>
        <source>No disk in a bay has a volume that is not mounted.</source>
        <translation>盘位中的磁盘没有未挂载的卷。</translation>
    </message>
    <message>
        <source>%1, serial number %2, was not mounted: %3</source>
        <translation>%1（序列号 %2）未能挂载：%3</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Save Job</source>
        <translation>保存任务</translation>
    </message>
    <message>
        <source>Open Job</source>
        <translation>打开任务</translation>
    </message>
    <message>
        <source>Jobs (*.plurimo)</source>
        <translation>任务 (*.plurimo)</translation>
    </message>
    <message>
        <source>Open log</source>
        <translation>打开日志</translation>
    </message>
    <message>
        <source>Disks are being duplicated. If you quit now, the copies are not complete.</source>
        <translation>正在复制磁盘。如果现在退出，副本将不完整。</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Go On</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Infomation</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>You must select a Orvana Storage Device first.</source>
        <translation>请先选择一个 Orvana 存储设备。</translation>
    </message>
    <message>
        <source>File Copy Completed</source>
        <translation>文件复制完成</translation>
    </message>
    <message>
        <source>All files have been copied successfully.</source>
        <translation>所有文件均已成功复制。</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Duplication finished</source>
        <translation>复制结束</translation>
    </message>
    <message>
        <source>The device was removed while files were being duplicated to it. The run has ended; its copies are not complete.</source>
        <translation>复制过程中设备被移除。运行已结束，其副本不完整。</translation>
    </message>
    <message>
        <source>Duplication ended</source>
        <translation>复制中断</translation>
    </message>
    <message>
        <source>The device was removed. The copies are not complete.</source>
        <translation>设备已被移除。副本不完整。</translation>
    </message>
    <message>
        <source>Nothing was duplicated</source>
        <translation>未复制任何内容</translation>
    </message>
    <message>
        <source>There was nothing to copy, or no disk to copy to.</source>
        <translation>没有可复制的内容，或没有目标磁盘。</translation>
    </message>
    <message>
        <source>Waiting for bay %1: %2</source>
        <translation>等待盘位 %1：%2</translation>
    </message>
    <message>
        <source>Erased</source>
        <translation>已抹掉</translation>
    </message>
    <message>
        <source>Not erased</source>
        <translation>未抹掉</translation>
    </message>
    <message>
        <source>Erasing...</source>
        <translation>正在抹掉……</translation>
    </message>
    <message>
        <source>To be erased</source>
        <translation>待抹掉</translation>
    </message>
    <message>
        <source>Erasing disk %1 of %2: bay %3</source>
        <translation>正在抹掉第 %1 个磁盘（共 %2 个）：盘位 %3</translation>
    </message>
    <message>
        <source>No part</source>
        <translation>未参与</translation>
    </message>
    <message>
        <source>This device cannot be selected when it&apos;s used as a startup disk.</source>
        <translation>此设备用作启动盘，无法选择。</translation>
    </message>
    <message>
        <source>This device cannot be selected, because it includes a RAID set.</source>
        <translation>此设备包含 RAID 组，无法选择。</translation>
    </message>
    <message>
        <source>The selected files are still being counted. The duplication goes on when that is done.</source>
        <translation>仍在统计所选文件。完成后将继续复制。</translation>
    </message>
    <message>
        <source>Insufficient Disk Space</source>
        <translation>磁盘空间不足</translation>
    </message>
    <message>
        <source>There is insufficient free disk space on the destination drive(s).</source>
        <translation>目标驱动器的可用空间不足。</translation>
    </message>
    <message>
        <source>There is insufficient free disk space on the destination drive(s)</source>
        <translation>以下目标驱动器的可用空间不足：</translation>
    </message>
    <message>
        <source>

Press OK to continue duplicating to the remaining drive(s).</source>
        <translation>

按“确定”继续复制到其余驱动器。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>The destination disks are being looked at.</source>
        <translation>正在查看目标磁盘。</translation>
    </message>
    <message>
        <source>These disks will lose everything they hold:</source>
        <translation>以下磁盘将失去全部内容：</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>抹掉</translation>
    </message>
    <message>
        <source>One moment</source>
        <translation>请稍候</translation>
    </message>
    <message>
        <source>What it has brought to these disks need not be copied again:</source>
        <translation>已写入这些磁盘的内容无需再次复制：</translation>
    </message>
    <message>
        <source>The last run was broken off</source>
        <translation>上次运行被中断</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>暂不</translation>
    </message>
</context>
<context>
    <name>orvana::Obsidio</name>
    <message>
        <source>Copyright © 2026 The Orvana Plurimo developers</source>
        <translation>Copyright © 2026 Orvana Plurimo 开发者</translation>
    </message>
    <message>
        <source>Version : %1</source>
        <translation>版本：%1</translation>
    </message>
</context>
<context>
    <name>orvana::OrvanaAppDelegate</name>
    <message>
        <source>About Orvana Plurimo</source>
        <translation>关于 Orvana Plurimo</translation>
    </message>
    <message>
        <source>Orvana Plurimo %1</source>
        <translation>Orvana Plurimo %1</translation>
    </message>
    <message>
        <source>Duplicates disks: one read, many writes, verified.</source>
        <translation>复制磁盘：一次读取，多处写入，逐一校验。</translation>
    </message>
    <message>
        <source>The selected files are still being counted.</source>
        <translation>仍在统计所选文件。</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>好</translation>
    </message>
</context>
<context>
    <name>orvana::RunOptionsSheet</name>
    <message>
        <source>Options for this run</source>
        <translation>本次运行的选项</translation>
    </message>
    <message>
        <source>The next run does this as well:</source>
        <translation>下一次运行还会：</translation>
    </message>
</context>
<context>
    <name>orvana::RunReportWindow</name>
    <message>
        <source>Save Report</source>
        <translation>保存报告</translation>
    </message>
    <message>
        <source>Save Certificates as PDF</source>
        <translation>将证书保存为 PDF</translation>
    </message>
    <message>
        <source>Save Certificates as HTML</source>
        <translation>将证书保存为 HTML</translation>
    </message>
    <message>
        <source>Saved to %1.</source>
        <translation>已保存到 %1。</translation>
    </message>
    <message>
        <source>The report could not be written to %1.</source>
        <translation>无法将报告写入 %1。</translation>
    </message>
</context>
<context>
    <name>orvana::RunWords</name>
    <message>
        <source>Copying</source>
        <translation>正在复制</translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation>正在校验</translation>
    </message>
    <message>
        <source>Copying and verifying</source>
        <translation>正在复制并校验</translation>
    </message>
    <message>
        <source>Writing out</source>
        <translation>正在写出</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>剩余 %1</translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n 个失败</numerusform>
        </translation>
    </message>
    <message>
        <source>Verified</source>
        <translation>已校验</translation>
    </message>
    <message>
        <source>Complete</source>
        <translation>完整</translation>
    </message>
    <message>
        <source>Not complete</source>
        <translation>不完整</translation>
    </message>
    <message>
        <source>Differs</source>
        <translation>不一致</translation>
    </message>
    <message>
        <source>Not compared</source>
        <translation>未比较</translation>
    </message>
    <message>
        <source>Not certain</source>
        <translation>不确定</translation>
    </message>
    <message>
        <source>Not finished</source>
        <translation>未完成</translation>
    </message>
    <message>
        <source>from the disk</source>
        <translation>从磁盘读取</translation>
    </message>
    <message>
        <source>in memory only</source>
        <translation>仅在内存中</translation>
    </message>
    <message>
        <source>not verified</source>
        <translation>未校验</translation>
    </message>
    <message>
        <source>not all verified</source>
        <translation>未全部校验</translation>
    </message>
    <message>
        <source>read from memory</source>
        <translation>从内存读取</translation>
    </message>
    <message numerus="yes">
        <source>%n differ</source>
        <translation>
            <numerusform>%n 个不一致</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not compared</source>
        <translation>
            <numerusform>%n 个未比较</numerusform>
        </translation>
    </message>
    <message>
        <source>not known to be on disk</source>
        <translation>不确定是否已写入磁盘</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>无内容</translation>
    </message>
    <message>
        <source>%1, and something that is not mounted</source>
        <translation>%1，以及未挂载的内容</translation>
    </message>
    <message>
        <source>something that is not mounted, or cannot be read</source>
        <translation>未挂载或无法读取的内容</translation>
    </message>
    <message>
        <source>at least 1 file</source>
        <translation>至少 1 个文件</translation>
    </message>
    <message numerus="yes">
        <source>at least %n files</source>
        <translation>
            <numerusform>至少 %n 个文件</numerusform>
        </translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1 个文件</translation>
    </message>
    <message numerus="yes">
        <source>%n files</source>
        <translation>
            <numerusform>%n 个文件</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%2，%1</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>%1: %2, serial number %3, holds %4, will be %5</source>
        <translation>%1：%2，序列号 %3，包含 %4，将变为 %5</translation>
    </message>
    <message>
        <source>%1: %2, serial number %3, now %4, holds %5, will be %6</source>
        <translation>%1：%2，序列号 %3，当前为 %4，包含 %5，将变为 %6</translation>
    </message>
    <message>
        <source>Eject each disk that holds every file at the end</source>
        <translation>结束时弹出每个包含全部文件的磁盘</translation>
    </message>
    <message>
        <source>Eject at the end</source>
        <translation>结束时弹出</translation>
    </message>
    <message>
        <source>&amp;Manifest on each copy:</source>
        <translation>每份副本上的清单(&amp;M)：</translation>
    </message>
    <message>
        <source>&amp;Digest of each file:</source>
        <translation>每个文件的摘要(&amp;D)：</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>ASC MHL history</source>
        <translation>ASC MHL 历史记录</translation>
    </message>
    <message>
        <source>Checksum file</source>
        <translation>校验和文件</translation>
    </message>
    <message>
        <source>Go on with the last run: what it has brought to the disks is not copied again</source>
        <translation>继续上次运行：已写入磁盘的内容不再复制</translation>
    </message>
    <message>
        <source>Compare what is there already with the source, and write only the blocks that differ</source>
        <translation>将已有内容与源比较，只写入不同的块</translation>
    </message>
    <message>
        <source>Cut longer files that are there already to the length of their source</source>
        <translation>将已有的较长文件截短到源文件的长度</translation>
    </message>
    <message>
        <source>When verifying, write blocks that differ once more</source>
        <translation>校验时重新写入不同的块</translation>
    </message>
    <message>
        <source>Go on with the last run</source>
        <translation>继续上次运行</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Exact lengths</source>
        <translation>精确长度</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>修复</translation>
    </message>
    <message>
        <source>&amp;Keep of the source:</source>
        <translation>保留源的(&amp;K)：</translation>
    </message>
    <message>
        <source>Content alone</source>
        <translation>仅内容</translation>
    </message>
    <message>
        <source>Dates</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>All it has</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Copy nothing</source>
        <translation>不复制任何内容</translation>
    </message>
    <message>
        <source>Leave that disk out</source>
        <translation>排除该磁盘</translation>
    </message>
    <message>
        <source>Copy what can be copied</source>
        <translation>复制可复制的内容</translation>
    </message>
    <message>
        <source>Do not look beforehand</source>
        <translation>不预先检查</translation>
    </message>
    <message>
        <source>&amp;Where a disk cannot hold all:</source>
        <translation>磁盘无法容纳全部时(&amp;W)：</translation>
    </message>
    <message>
        <source>Ask each disk how it is, and leave out one that calls itself failing</source>
        <translation>询问每个磁盘的状况，略过自报故障的磁盘</translation>
    </message>
    <message>
        <source>Health</source>
        <translation>健康状况</translation>
    </message>
</context>
<context>
    <name>orvana::TBDeviceViewController</name>
    <message>
        <source>&amp;Orvana Storage Device :</source>
        <translation>Orvana 存储设备(&amp;O)：</translation>
    </message>
    <message>
        <source>&amp;Orvana Storage Device (%1) :</source>
        <translation>Orvana 存储设备(&amp;O) (%1)：</translation>
    </message>
</context>
<context>
    <name>orvana::VerifyWindow</name>
    <message>
        <source>&amp;Record the result on the disks</source>
        <translation>将结果记录到磁盘上(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Add folder...</source>
        <translation>添加文件夹(&amp;A)...</translation>
    </message>
    <message>
        <source>Verify Disks</source>
        <translation>校验磁盘</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>发现的问题</translation>
    </message>
    <message>
        <source>Appends the result to the history on each disk, as its next generation.</source>
        <translation>将结果作为下一代追加到每个磁盘的历史记录。</translation>
    </message>
    <message>
        <source>Each ticked disk is read in full and compared with the list of files on it. The source is not needed.</source>
        <translation>勾选的每个磁盘都会被完整读取，并与其上的文件列表比较。不需要源盘。</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Disk</source>
        <translation>磁盘</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>已读取</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>结论</translation>
    </message>
    <message>
        <source>Disks</source>
        <translation>磁盘</translation>
    </message>
    <message>
        <source>Add a Folder to Verify</source>
        <translation>添加要校验的文件夹</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>停止(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>校验(&amp;V)</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>There is no list of files</source>
        <translation>没有文件列表</translation>
    </message>
    <message>
        <source>Not verified</source>
        <translation>未校验</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>完整</translation>
    </message>
    <message>
        <source>Not whole</source>
        <translation>不完整</translation>
    </message>
</context>
<context>
    <name>orvana::VersionWindow</name>
    <message>
        <source>A new version is available for download at</source>
        <translation>新版本可从以下网址下载</translation>
    </message>
    <message>
        <source>You are running the most current version of</source>
        <translation>您使用的是最新版本</translation>
    </message>
    <message>
        <source>Orvana Plurimo</source>
        <translation>Orvana Plurimo</translation>
    </message>
</context>
</TS>
