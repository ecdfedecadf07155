<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>BaySetupSheet</name>
    <message>
        <source>Set up bays - Orvana Plurimo</source>
        <translation>ベイの設定 - Orvana Plurimo</translation>
    </message>
    <message>
        <source>Name of the &amp;enclosure:</source>
        <translation>エンクロージャの名前(&amp;E):</translation>
    </message>
    <message>
        <source>Name of the enclosure</source>
        <translation>エンクロージャの名前</translation>
    </message>
    <message>
        <source>for example: Desk dock</source>
        <translation>例: デスクのドック</translation>
    </message>
    <message>
        <source>Bay A</source>
        <translation>ベイ A</translation>
    </message>
    <message>
        <source>Bay B</source>
        <translation>ベイ B</translation>
    </message>
    <message>
        <source>Bay C</source>
        <translation>ベイ C</translation>
    </message>
    <message>
        <source>Bay D</source>
        <translation>ベイ D</translation>
    </message>
    <message>
        <source>&amp;No such bay</source>
        <translation>このベイはない(&amp;N)</translation>
    </message>
    <message>
        <source>The enclosure does not have the bay that is asked for</source>
        <translation>尋ねられたベイはこのエンクロージャにありません</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>完了(&amp;D)</translation>
    </message>
    <message>
        <source>Writes the enclosure</source>
        <translation>エンクロージャを書き込みます</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>中止(&amp;C)</translation>
    </message>
</context>
<context>
    <name>CopyActionViewController</name>
    <message>
        <source>Options for this run</source>
        <translation>今回のオプション</translation>
    </message>
</context>
<context>
    <name>Core</name>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Unformatted</source>
        <translation>未フォーマット</translation>
    </message>
    <message>
        <source>Select an Orvana Storage Device</source>
        <translation>Orvana ストレージ機器を選択</translation>
    </message>
    <message>
        <source>Source Disk (Slot-A)</source>
        <translation>コピー元 (Slot-A)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-A)</source>
        <translation>コピー先 (Slot-A)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-B)</source>
        <translation>コピー先 (Slot-B)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-C)</source>
        <translation>コピー先 (Slot-C)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-D)</source>
        <translation>コピー先 (Slot-D)</translation>
    </message>
    <message>
        <source>Duplicating %1</source>
        <translation>複製中: %1</translation>
    </message>
    <message>
        <source>Verifying File ...</source>
        <translation>ファイルを検証中...</translation>
    </message>
    <message>
        <source>Verifying File ... Failed</source>
        <translation>ファイルを検証中... 失敗</translation>
    </message>
    <message>
        <source>Verifying File ... Succeeded</source>
        <translation>ファイルを検証中... 成功</translation>
    </message>
    <message>
        <source>Erasing the destination disks. The window answers again when it is done.</source>
        <translation>コピー先を消去しています。終わるまでウィンドウは応答しません。</translation>
    </message>
    <message>
        <source>Eject %1</source>
        <translation>取り出し: %1</translation>
    </message>
    <message>
        <source>Mount %1</source>
        <translation>マウント: %1</translation>
    </message>
    <message>
        <source>You must select a Orvana Storage Device first.</source>
        <translation>先に Orvana ストレージ機器を選んでください。</translation>
    </message>
    <message>
        <source>The selected device is no longer there.</source>
        <translation>選択した機器が見つかりません。</translation>
    </message>
    <message>
        <source>Another device has taken the place of the selected one.</source>
        <translation>選択した機器の場所に別の機器があります。</translation>
    </message>
    <message>
        <source>This device cannot be selected when it&apos;s used as a startup disk.</source>
        <translation>起動ディスクとして使われているため、この機器は選べません。</translation>
    </message>
    <message>
        <source>Nothing is selected to be copied, so no disk is erased.</source>
        <translation>コピーするものが選ばれていないため、ディスクは消去されません。</translation>
    </message>
    <message>
        <source>The source is not there any more, or another disk has taken its place. Nothing was touched. Choose the source again.</source>
        <translation>コピー元がないか、別のディスクに替わっています。何も変更していません。コピー元を選び直してください。</translation>
    </message>
    <message>
        <source>The source is not there any more, or another disk has taken its place. Nothing was copied; the report says which disks were erased. Choose the source again.</source>
        <translation>コピー元がないか、別のディスクに替わっています。何もコピーしていません。消去したディスクはレポートにあります。コピー元を選び直してください。</translation>
    </message>
    <message>
        <source>A disk of the run before does not answer. Nothing was erased.</source>
        <translation>前回の実行のディスクが応答しません。何も消去していません。</translation>
    </message>
    <message>
        <source>The device is not the one that was chosen when the start began. Nothing was touched.</source>
        <translation>開始時に選んだ機器ではありません。何も変更していません。</translation>
    </message>
    <message>
        <source>The disks are not those that were shown any more. Nothing was touched.</source>
        <translation>表示されていたディスクではなくなりました。何も変更していません。</translation>
    </message>
    <message>
        <source>it carries the source</source>
        <translation>コピー元があるディスクです</translation>
    </message>
    <message>
        <source>it cannot be told from a disk of the source</source>
        <translation>コピー元のディスクと区別できません</translation>
    </message>
    <message>
        <source>it is the start-up disk</source>
        <translation>起動ディスクです</translation>
    </message>
    <message>
        <source>it belongs to a RAID set</source>
        <translation>RAID セットの一部です</translation>
    </message>
    <message>
        <source>it has no device node</source>
        <translation>デバイスノードがありません</translation>
    </message>
    <message>
        <source>another disk claims the same place</source>
        <translation>別のディスクが同じ場所を主張しています</translation>
    </message>
    <message>
        <source>its volume has no name</source>
        <translation>ボリュームに名前がありません</translation>
    </message>
    <message>
        <source>its volume is not mounted</source>
        <translation>ボリュームがマウントされていません</translation>
    </message>
    <message>
        <source>it is not the disk that was shown</source>
        <translation>表示されていたディスクではありません</translation>
    </message>
    <message>
        <source>its erase did not succeed</source>
        <translation>消去できませんでした</translation>
    </message>
    <message>
        <source>it no longer holds the volume that was shown</source>
        <translation>表示されていたボリュームがありません</translation>
    </message>
    <message>
        <source>another run is at work on its volume</source>
        <translation>別の実行がこのボリュームを使っています</translation>
    </message>
    <message>
        <source>its volume is mounted read-only</source>
        <translation>ボリュームは読み取り専用でマウントされています</translation>
    </message>
    <message>
        <source>the selection does not fit</source>
        <translation>入りきりません</translation>
    </message>
    <message>
        <source>a bay before it shows the same name</source>
        <translation>前のベイに同じ名前があります</translation>
    </message>
    <message>
        <source>the erase was stopped before it</source>
        <translation>その前に消去が止められました</translation>
    </message>
    <message>
        <source>the disk utility could not be started</source>
        <translation>ディスクユーティリティを起動できませんでした</translation>
    </message>
    <message>
        <source>a disk needs a name</source>
        <translation>ディスクには名前が必要です</translation>
    </message>
    <message>
        <source>this cannot be the name of a disk</source>
        <translation>ディスクの名前にできません</translation>
    </message>
    <message>
        <source>a name cannot hold &quot;/&quot;</source>
        <translation>名前に「/」は使えません</translation>
    </message>
    <message>
        <source>a name is text on one line</source>
        <translation>名前は一行の文字列です</translation>
    </message>
    <message>
        <source>this is the name of the source</source>
        <translation>コピー元の名前です</translation>
    </message>
    <message>
        <source>a name cannot begin or end with a blank, nor hold two in a row</source>
        <translation>名前の先頭と末尾、または連続した空白は使えません</translation>
    </message>
    <message>
        <source>Not ejected:</source>
        <translation>取り出せなかったもの:</translation>
    </message>
    <message>
        <source>Choose the enclosure first, and open the job when no run goes on.</source>
        <translation>先にエンクロージャを選び、実行中でないときにジョブを開いてください。</translation>
    </message>
    <message>
        <source>Nothing is ticked, so there is no job to save.</source>
        <translation>何も選択されていないため、保存するジョブがありません。</translation>
    </message>
    <message>
        <source>the job could not be written</source>
        <translation>ジョブを書き込めませんでした</translation>
    </message>
    <message>
        <source>the source of the job is not there</source>
        <translation>ジョブのコピー元がありません</translation>
    </message>
    <message>
        <source>two volumes have the id of the job&apos;s source</source>
        <translation>ジョブのコピー元と同じ ID のボリュームが二つあります</translation>
    </message>
    <message>
        <source>another source has the same name; rename one of them</source>
        <translation>同じ名前のコピー元がもう一つあります。どちらかの名前を変えてください</translation>
    </message>
    <message>
        <source>no such file or folder in the source</source>
        <translation>コピー元にそのファイルやフォルダはありません</translation>
    </message>
    <message>
        <source>The demo cannot be started.</source>
        <translation>デモを開始できません。</translation>
    </message>
    <message>
        <source>Disks are at work. Bays can be set up when that has ended.</source>
        <translation>ディスクが動作中です。終わってからベイを設定できます。</translation>
    </message>
    <message>
        <source>an enclosure needs two to four bays</source>
        <translation>エンクロージャには 2〜4 個のベイが必要です</translation>
    </message>
    <message>
        <source>an ASC MHL manifest cannot hold sha256 digests</source>
        <translation>ASC MHLマニフェストにsha256のダイジェストは入れられません</translation>
    </message>
    <message>
        <source>a checksum file cannot hold c4 digests</source>
        <translation>チェックサムファイルにc4のダイジェストは入れられません</translation>
    </message>
    <message>
        <source>A run that goes on with the last one erases no disk. Switch one of the two off.</source>
        <translation>前回の実行を続ける場合、ディスクは消去されません。どちらか一方をオフにしてください。</translation>
    </message>
    <message>
        <source>A production line is armed. Disarm it first.</source>
        <translation>生産ラインが待機中です。先に解除してください。</translation>
    </message>
    <message>
        <source>it was in the bay already</source>
        <translation>すでにベイに入っていました</translation>
    </message>
    <message>
        <source>its countdown was stopped</source>
        <translation>カウントダウンが止められました</translation>
    </message>
    <message>
        <source>it has no serial number</source>
        <translation>シリアル番号がありません</translation>
    </message>
    <message>
        <source>a disk with its serial number is in another bay</source>
        <translation>同じシリアル番号のディスクが別のベイにあります</translation>
    </message>
    <message>
        <source>as many disks as are wanted are done or in work</source>
        <translation>必要な数のディスクが完了または作業中です</translation>
    </message>
    <message>
        <source>the line is paused</source>
        <translation>ラインは一時停止中です</translation>
    </message>
    <message>
        <source>the line has ended</source>
        <translation>ラインは終了しました</translation>
    </message>
    <message>
        <source>no more disks were wanted for now</source>
        <translation>今はこれ以上必要ありません</translation>
    </message>
    <message>
        <source>a line counts only disks that were verified; the job does not verify</source>
        <translation>ラインは検証されたディスクだけを数えます。このジョブは検証しません</translation>
    </message>
    <message>
        <source>a line begins each disk anew; the job goes on with the last run</source>
        <translation>ラインは各ディスクを最初から始めます。このジョブは前回の続きを行います</translation>
    </message>
    <message>
        <source>the names of disks in two bays would be the same; put {n} or {bay} into the pattern</source>
        <translation>2つのベイのディスク名が同じになります。{n}または{bay}を入れてください</translation>
    </message>
    <message>
        <source>it calls itself failing</source>
        <translation>自ら故障を告げています</translation>
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
        <translation>不明</translation>
    </message>
    <message>
        <source>calls itself failing</source>
        <translation>ディスク自身が故障を報告しています</translation>
    </message>
    <message>
        <source>1 bad sector</source>
        <translation>不良セクタ 1 個</translation>
    </message>
    <message>
        <source>%1 bad sectors</source>
        <translation>不良セクタ %1 個</translation>
    </message>
    <message>
        <source>%1 of them new</source>
        <translation>うち新規 %1 個</translation>
    </message>
    <message>
        <source>1 new error</source>
        <translation>新しいエラー 1 件</translation>
    </message>
    <message>
        <source>%1 new errors</source>
        <translation>新しいエラー %1 件</translation>
    </message>
    <message>
        <source>hot</source>
        <translation>高温</translation>
    </message>
    <message>
        <source>its temperature is out of its own limits</source>
        <translation>温度がディスク自身の限度を超えています</translation>
    </message>
    <message>
        <source>the link is down to 1.5 Gbps</source>
        <translation>接続が 1.5 Gbps に低下しています</translation>
    </message>
    <message>
        <source>1 value at its limit</source>
        <translation>限度に達した値 1 個</translation>
    </message>
    <message>
        <source>%1 values at its limit</source>
        <translation>限度に達した値 %1 個</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 時間</translation>
    </message>
    <message>
        <source>%1 hours</source>
        <translation>%1 時間</translation>
    </message>
</context>
<context>
    <name>DiskInfoViewController</name>
    <message>
        <source>So&amp;urce</source>
        <translation>コピー元(&amp;U)</translation>
    </message>
    <message>
        <source>Source disk</source>
        <translation>コピー元ディスク</translation>
    </message>
    <message>
        <source>Volume name of source</source>
        <translation>コピー元のボリューム名</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>機種</translation>
    </message>
    <message>
        <source>Model of source</source>
        <translation>コピー元の機種</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>製造番号</translation>
    </message>
    <message>
        <source>Serial number of source</source>
        <translation>コピー元の製造番号</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>空き</translation>
    </message>
    <message>
        <source>Free space of source</source>
        <translation>コピー元の空き容量</translation>
    </message>
    <message>
        <source>Capacity</source>
        <translation>容量</translation>
    </message>
    <message>
        <source>Capacity of source</source>
        <translation>コピー元の容量</translation>
    </message>
    <message>
        <source>Slot-A</source>
        <translation>Slot-A</translation>
    </message>
    <message>
        <source>Volume name of bay A</source>
        <translation>ベイ A のボリューム名</translation>
    </message>
    <message>
        <source>Model of bay A</source>
        <translation>ベイ A の機種</translation>
    </message>
    <message>
        <source>Serial number of bay A</source>
        <translation>ベイ A の製造番号</translation>
    </message>
    <message>
        <source>Free space of bay A</source>
        <translation>ベイ A の空き容量</translation>
    </message>
    <message>
        <source>Capacity of bay A</source>
        <translation>ベイ A の容量</translation>
    </message>
    <message>
        <source>Does not fit</source>
        <translation>容量不足</translation>
    </message>
    <message>
        <source>Warning for bay A</source>
        <translation>ベイ A の警告</translation>
    </message>
    <message>
        <source>RAID</source>
        <translation>RAID</translation>
    </message>
    <message>
        <source>RAID marker of bay A</source>
        <translation>ベイ A の RAID 表示</translation>
    </message>
    <message>
        <source>Slot-B</source>
        <translation>Slot-B</translation>
    </message>
    <message>
        <source>Volume name of bay B</source>
        <translation>ベイ B のボリューム名</translation>
    </message>
    <message>
        <source>Model of bay B</source>
        <translation>ベイ B の機種</translation>
    </message>
    <message>
        <source>Serial number of bay B</source>
        <translation>ベイ B の製造番号</translation>
    </message>
    <message>
        <source>Free space of bay B</source>
        <translation>ベイ B の空き容量</translation>
    </message>
    <message>
        <source>Capacity of bay B</source>
        <translation>ベイ B の容量</translation>
    </message>
    <message>
        <source>Warning for bay B</source>
        <translation>ベイ B の警告</translation>
    </message>
    <message>
        <source>RAID marker of bay B</source>
        <translation>ベイ B の RAID 表示</translation>
    </message>
    <message>
        <source>Slot-C</source>
        <translation>Slot-C</translation>
    </message>
    <message>
        <source>Volume name of bay C</source>
        <translation>ベイ C のボリューム名</translation>
    </message>
    <message>
        <source>Model of bay C</source>
        <translation>ベイ C の機種</translation>
    </message>
    <message>
        <source>Serial number of bay C</source>
        <translation>ベイ C の製造番号</translation>
    </message>
    <message>
        <source>Free space of bay C</source>
        <translation>ベイ C の空き容量</translation>
    </message>
    <message>
        <source>Capacity of bay C</source>
        <translation>ベイ C の容量</translation>
    </message>
    <message>
        <source>Warning for bay C</source>
        <translation>ベイ C の警告</translation>
    </message>
    <message>
        <source>RAID marker of bay C</source>
        <translation>ベイ C の RAID 表示</translation>
    </message>
    <message>
        <source>Slot-D</source>
        <translation>Slot-D</translation>
    </message>
    <message>
        <source>Volume name of bay D</source>
        <translation>ベイ D のボリューム名</translation>
    </message>
    <message>
        <source>Model of bay D</source>
        <translation>ベイ D の機種</translation>
    </message>
    <message>
        <source>Serial number of bay D</source>
        <translation>ベイ D の製造番号</translation>
    </message>
    <message>
        <source>Free space of bay D</source>
        <translation>ベイ D の空き容量</translation>
    </message>
    <message>
        <source>Capacity of bay D</source>
        <translation>ベイ D の容量</translation>
    </message>
    <message>
        <source>Warning for bay D</source>
        <translation>ベイ D の警告</translation>
    </message>
    <message>
        <source>RAID marker of bay D</source>
        <translation>ベイ D の RAID 表示</translation>
    </message>
    <message>
        <source>E&amp;ject</source>
        <translation>取り出す(&amp;J)</translation>
    </message>
    <message>
        <source>Eject source disk</source>
        <translation>コピー元ディスクを取り出す</translation>
    </message>
    <message>
        <source>Eject the source disk</source>
        <translation>コピー元ディスクを取り出します</translation>
    </message>
    <message>
        <source>Destinations</source>
        <translation>コピー先</translation>
    </message>
    <message>
        <source>Eject A&amp;ll</source>
        <translation>すべて取り出す(&amp;L)</translation>
    </message>
    <message>
        <source>Eject destination disks</source>
        <translation>コピー先ディスクを取り出す</translation>
    </message>
    <message>
        <source>Eject all destination disks</source>
        <translation>すべてのコピー先ディスクを取り出します</translation>
    </message>
</context>
<context>
    <name>FileListViewController</name>
    <message>
        <source>Files and folders to duplicate</source>
        <translation>複製するファイルとフォルダ</translation>
    </message>
    <message>
        <source>Ticked files</source>
        <translation>選択したファイル</translation>
    </message>
</context>
<context>
    <name>LogDataWindows</name>
    <message>
        <source>Run Logs</source>
        <translation>実行ログ</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>フォルダを開く</translation>
    </message>
    <message>
        <source>Opens the folder of the logs in the file manager</source>
        <translation>ログのフォルダをファイルマネージャで開きます</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Reads the folder of the logs again</source>
        <translation>ログのフォルダを読み直します</translation>
    </message>
    <message>
        <source>Logs</source>
        <translation>ログ</translation>
    </message>
    <message>
        <source>The newest log comes first. Backspace or Delete removes the selected one.</source>
        <translation>新しいログが先頭です。Backspace または Delete で選択したログを削除します。</translation>
    </message>
    <message>
        <source>Find in the log</source>
        <translation>ログ内を検索</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>前へ</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>前を検索</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>次へ</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>次を検索</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>見つかりません</translation>
    </message>
    <message>
        <source>Text of the log</source>
        <translation>ログの本文</translation>
    </message>
    <message>
        <source>Delete All Logs</source>
        <translation>すべてのログを削除</translation>
    </message>
    <message>
        <source>Removes every log in the list and its report at once, without asking.</source>
        <translation>一覧のすべてのログとレポートを、確認なしですぐに削除します。</translation>
    </message>
    <message>
        <source>Removes every log in the list and its report at once, without asking</source>
        <translation>一覧のすべてのログとレポートを、確認なしですぐに削除します</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
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
        <translation>進行状況のメッセージ</translation>
    </message>
    <message>
        <source>Stage of the run</source>
        <translation>実行の段階</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>全体</translation>
    </message>
    <message>
        <source>This file</source>
        <translation>このファイル</translation>
    </message>
    <message>
        <source>The whole run</source>
        <translation>実行全体</translation>
    </message>
    <message>
        <source>The current file</source>
        <translation>現在のファイル</translation>
    </message>
    <message>
        <source>Progress of the whole run</source>
        <translation>実行全体の進み具合</translation>
    </message>
    <message>
        <source>Progress of the current file</source>
        <translation>現在のファイルの進み具合</translation>
    </message>
    <message>
        <source>?</source>
        <translation>?</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>How to use Orvana Plurimo</source>
        <translation>Orvana Plurimo の使い方</translation>
    </message>
</context>
<context>
    <name>NoEnclosureView</name>
    <message>
        <source>No enclosure was found.</source>
        <translation>エンクロージャが見つかりません。</translation>
    </message>
    <message>
        <source>Set up &amp;bays...</source>
        <translation>ベイの設定(&amp;B)...</translation>
    </message>
    <message>
        <source>Says which ports of a dock or a case are the bays of an enclosure</source>
        <translation>ドックのどのポートをベイにするかを決めます</translation>
    </message>
    <message>
        <source>&amp;Try the demo</source>
        <translation>デモを試す(&amp;T)</translation>
    </message>
    <message>
        <source>Opens a second window on a machine that is simulated</source>
        <translation>模擬マシンで二つ目のウィンドウを開きます</translation>
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
        <translation>ヘルプ</translation>
    </message>
</context>
<context>
    <name>ProgressBarViewController</name>
    <message>
        <source>Status</source>
        <translation>状態</translation>
    </message>
    <message>
        <source>Progress of the whole run</source>
        <translation>実行全体の進み具合</translation>
    </message>
    <message>
        <source>Progress of the current file</source>
        <translation>現在のファイルの進み具合</translation>
    </message>
</context>
<context>
    <name>RunReportWindow</name>
    <message>
        <source>Run Report - Orvana Plurimo</source>
        <translation>実行レポート - Orvana Plurimo</translation>
    </message>
    <message>
        <source>What each destination got</source>
        <translation>各コピー先の結果</translation>
    </message>
    <message>
        <source>Files that failed or differ</source>
        <translation>失敗または不一致のファイル</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>コピー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save the report file (JSON)</source>
        <translation>レポートファイル (JSON) を保存します</translation>
    </message>
    <message>
        <source>Save as &amp;PDF</source>
        <translation>PDF で保存(&amp;P)</translation>
    </message>
    <message>
        <source>Save a certificate for each disk as PDF</source>
        <translation>ディスクごとの証明書を PDF で保存します</translation>
    </message>
    <message>
        <source>Save as &amp;HTML</source>
        <translation>HTML で保存(&amp;H)</translation>
    </message>
    <message>
        <source>Save a certificate for each disk as HTML</source>
        <translation>ディスクごとの証明書を HTML で保存します</translation>
    </message>
    <message>
        <source>Open &amp;log</source>
        <translation>ログを開く(&amp;L)</translation>
    </message>
    <message>
        <source>Clos&amp;e</source>
        <translation>閉じる(&amp;E)</translation>
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
        <translation>接続された機器が使えない理由を示します</translation>
    </message>
    <message>
        <source>Orvana storage device</source>
        <translation>Orvana ストレージ機器</translation>
    </message>
</context>
<context>
    <name>VersionWindow</name>
    <message>
        <source>Check for Updates</source>
        <translation>アップデートを確認</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>orvana::BayRunView</name>
    <message>
        <source>Run of %1</source>
        <translation>%1の実行</translation>
    </message>
    <message>
        <source>State of %1</source>
        <translation>%1の状態</translation>
    </message>
    <message>
        <source>Progress of %1</source>
        <translation>%1の進み具合</translation>
    </message>
    <message>
        <source>Rate of %1</source>
        <translation>%1の速度</translation>
    </message>
    <message>
        <source>Time left for %1</source>
        <translation>%1の残り時間</translation>
    </message>
</context>
<context>
    <name>orvana::BaySetupSheet</name>
    <message>
        <source>no such bay</source>
        <translation>このベイはない</translation>
    </message>
    <message>
        <source>Put a disk into bay %1. If one is there already, take it out and put it in again.</source>
        <translation>ベイ %1 にディスクを入れてください。すでに入っている場合は、一度抜いて入れ直してください。</translation>
    </message>
    <message>
        <source>All bays have been asked for. Press Cancel and begin again.</source>
        <translation>すべてのベイを尋ね終えました。「中止」を押して最初からやり直してください。</translation>
    </message>
    <message>
        <source>All bays have been asked for.</source>
        <translation>すべてのベイを尋ね終えました。</translation>
    </message>
    <message>
        <source>Type a name for the enclosure.</source>
        <translation>エンクロージャの名前を入力してください。</translation>
    </message>
    <message>
        <source>Waiting for the permission to write it ...</source>
        <translation>書き込みの許可を待っています...</translation>
    </message>
    <message>
        <source>Done writes an enclosure with %1 bays.</source>
        <translation>「完了」で、ベイが %1 個のエンクロージャを書き込みます。</translation>
    </message>
    <message>
        <source>waiting for a disk</source>
        <translation>ディスク待ち</translation>
    </message>
</context>
<context>
    <name>orvana::CopyActionViewController</name>
    <message>
        <source>&amp;Erase destination disk(s)</source>
        <translation>コピー先を消去(&amp;E)</translation>
    </message>
    <message>
        <source>Erase destination disk(s)</source>
        <translation>コピー先を消去</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>検証(&amp;V)</translation>
    </message>
    <message>
        <source>Verify</source>
        <translation>検証</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>開始(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>中止(&amp;C)</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>開始</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>中止</translation>
    </message>
</context>
<context>
    <name>orvana::DiskInfoViewController</name>
    <message>
        <source>bay %1</source>
        <translation>ベイ %1</translation>
    </message>
    <message>
        <source>(no name)</source>
        <translation>(名前なし)</translation>
    </message>
</context>
<context>
    <name>orvana::FileListViewController</name>
    <message>
        <source>%1 File(s)     Size : %2</source>
        <translation>%1 ファイル     サイズ: %2</translation>
    </message>
</context>
<context>
    <name>orvana::LineTile</name>
    <message>
        <source>Not armed</source>
        <translation>待機解除</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>待機中</translation>
    </message>
    <message>
        <source>Looking</source>
        <translation>確認中</translation>
    </message>
    <message>
        <source>Not taken</source>
        <translation>対象外</translation>
    </message>
    <message>
        <source>Asking</source>
        <translation>確認待ち</translation>
    </message>
    <message>
        <source>Begins in</source>
        <translation>開始まで</translation>
    </message>
    <message>
        <source>Erasing</source>
        <translation>消去中</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>コピー中</translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation>検証中</translation>
    </message>
    <message>
        <source>Ejecting</source>
        <translation>取り出し中</translation>
    </message>
    <message>
        <source>Passed</source>
        <translation>合格</translation>
    </message>
    <message>
        <source>Not proven</source>
        <translation>未証明</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失敗</translation>
    </message>
    <message>
        <source>Yes, write this disk</source>
        <translation>はい、このディスクに書き込む</translation>
    </message>
    <message>
        <source>State of bay %1</source>
        <translation>ベイ%1の状態</translation>
    </message>
    <message>
        <source>Progress of bay %1</source>
        <translation>ベイ%1の進行状況</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>コピー元</translation>
    </message>
</context>
<context>
    <name>orvana::LineWindow</name>
    <message>
        <source>Production Line</source>
        <translation>生産ライン</translation>
    </message>
    <message>
        <source>Each disk that comes into an armed bay gets this, and is verified: %1, files: %2, %3</source>
        <translation>待機中のベイに入った各ディスクに次の内容を書き込み、検証します: %1、ファイル数: %2、%3</translation>
    </message>
    <message>
        <source>&amp;Line:</source>
        <translation>ライン(&amp;L):</translation>
    </message>
    <message>
        <source>&amp;Title:</source>
        <translation>名前(&amp;T):</translation>
    </message>
    <message>
        <source>&amp;Number of disks:</source>
        <translation>ディスクの数(&amp;N):</translation>
    </message>
    <message>
        <source>May hold {n:03} for the number, {serial}, {bay} and {date}</source>
        <translation>番号の{n:03}、{serial}、{bay}、{date}を使えます</translation>
    </message>
    <message>
        <source>N&amp;ames of the disks:</source>
        <translation>ディスク名(&amp;A):</translation>
    </message>
    <message>
        <source>Bay &amp;%1</source>
        <translation>ベイ &amp;%1</translation>
    </message>
    <message>
        <source>Armed bays:</source>
        <translation>待機するベイ:</translation>
    </message>
    <message>
        <source>A&amp;rm</source>
        <translation>待機を開始(&amp;R)</translation>
    </message>
    <message>
        <source>Disks made</source>
        <translation>完成したディスク</translation>
    </message>
    <message>
        <source>No &amp;more disks</source>
        <translation>これ以上受け付けない(&amp;M)</translation>
    </message>
    <message>
        <source>New line</source>
        <translation>新しいライン</translation>
    </message>
    <message>
        <source>Disks are still in work.</source>
        <translation>まだ作業中のディスクがあります。</translation>
    </message>
    <message>
        <source>The words are &quot;%1&quot;.</source>
        <translation>入力する言葉は「%1」です。</translation>
    </message>
    <message>
        <source>No bay is ticked.</source>
        <translation>ベイが選ばれていません。</translation>
    </message>
    <message>
        <source>Any key, and any click beside a button, stops a countdown.</source>
        <translation>どのキーでも、ボタン以外のクリックでも、カウントダウンが止まります。</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%2中%1</translation>
    </message>
    <message>
        <source>&amp;Go on</source>
        <translation>続行(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>一時停止(&amp;P)</translation>
    </message>
    <message>
        <source>No more disks are taken: %1</source>
        <translation>これ以上ディスクを受け付けません: %1</translation>
    </message>
    <message>
        <source>The window closes when the disks in work are done.</source>
        <translation>作業中のディスクが終わるとウィンドウが閉じます。</translation>
    </message>
    <message>
        <source>To be as&amp;ked about no disk&apos;s content, type &quot;%1&quot;:</source>
        <translation>ディスクの内容を確認しない場合は「%1」と入力(&amp;K):</translation>
    </message>
</context>
<context>
    <name>orvana::LogDataWindows</name>
    <message>
        <source>This log is long. Only its end is shown, at most the last 10 MB.</source>
        <translation>このログは長いため、末尾の最大 10 MB だけを表示しています。</translation>
    </message>
</context>
<context>
    <name>orvana::MainMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Rescan</source>
        <translation>再スキャン(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Logs</source>
        <translation>ログ(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Open job...</source>
        <translation>ジョブを開く(&amp;O)...</translation>
    </message>
    <message>
        <source>&amp;Save job...</source>
        <translation>ジョブを保存(&amp;S)...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>実行(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>開始(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>検証(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Erase Destination Disks</source>
        <translation>コピー先ディスクを消去(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Options for this run...</source>
        <translation>今回のオプション(&amp;O)...</translation>
    </message>
    <message>
        <source>E&amp;ject Source</source>
        <translation>コピー元を取り出す(&amp;J)</translation>
    </message>
    <message>
        <source>Eject &amp;Destinations</source>
        <translation>コピー先を取り出す(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Mount disks</source>
        <translation>ディスクをマウント(&amp;M)</translation>
    </message>
    <message>
        <source>Set up &amp;bays...</source>
        <translation>ベイの設定(&amp;B)...</translation>
    </message>
    <message>
        <source>&amp;Last Report</source>
        <translation>最新のレポート(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;How to Use</source>
        <translation>使い方(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Check for Updates</source>
        <translation>アップデートを確認(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;About Orvana Plurimo</source>
        <translation>Orvana Plurimo について(&amp;A)</translation>
    </message>
    <message>
        <source>Verify dis&amp;ks...</source>
        <translation>ディスクを検証(&amp;K)...</translation>
    </message>
    <message>
        <source>&amp;Go on with the last run</source>
        <translation>前回の実行を続ける(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Production line...</source>
        <translation>生産ライン(&amp;P)...</translation>
    </message>
</context>
<context>
    <name>orvana::MainWindow</name>
    <message>
        <source>Orvana Plurimo, the disk duplicator</source>
        <translation>Orvana Plurimo、ディスクデュプリケータ</translation>
    </message>
    <message>
        <source>Version : %1</source>
        <translation>バージョン: %1</translation>
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
        <translation>OK</translation>
    </message>
    <message>
        <source>Ejected</source>
        <translation>取り出し完了</translation>
    </message>
    <message>
        <source>These disks can be taken out: %1</source>
        <translation>次のディスクは取り外せます: %1</translation>
    </message>
    <message>
        <source>Nothing to mount</source>
        <translation>マウントするものがありません</translation>
    </message>
    <message>
        <source>No disk in a bay has a volume that is not mounted.</source>
        <translation>ベイのディスクに、マウントされていないボリュームはありません。</translation>
    </message>
    <message>
        <source>%1, serial number %2, was not mounted: %3</source>
        <translation>%1 (製造番号 %2) はマウントされませんでした: %3</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Save Job</source>
        <translation>ジョブを保存</translation>
    </message>
    <message>
        <source>Open Job</source>
        <translation>ジョブを開く</translation>
    </message>
    <message>
        <source>Jobs (*.plurimo)</source>
        <translation>ジョブ (*.plurimo)</translation>
    </message>
    <message>
        <source>Open log</source>
        <translation>ログを開く</translation>
    </message>
    <message>
        <source>Disks are being duplicated. If you quit now, the copies are not complete.</source>
        <translation>複製中です。今終了すると、コピーは未完成になります。</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Go On</source>
        <translation>続ける</translation>
    </message>
    <message>
        <source>Infomation</source>
        <translation>お知らせ</translation>
    </message>
    <message>
        <source>You must select a Orvana Storage Device first.</source>
        <translation>先に Orvana ストレージ機器を選んでください。</translation>
    </message>
    <message>
        <source>File Copy Completed</source>
        <translation>コピー完了</translation>
    </message>
    <message>
        <source>All files have been copied successfully.</source>
        <translation>すべてのファイルを正常にコピーしました。</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>Duplication finished</source>
        <translation>複製が終わりました</translation>
    </message>
    <message>
        <source>The device was removed while files were being duplicated to it. The run has ended; its copies are not complete.</source>
        <translation>複製中に機器が取り外されました。実行は終了し、コピーは未完成です。</translation>
    </message>
    <message>
        <source>Duplication ended</source>
        <translation>複製が中断しました</translation>
    </message>
    <message>
        <source>The device was removed. The copies are not complete.</source>
        <translation>機器が取り外されました。コピーは未完成です。</translation>
    </message>
    <message>
        <source>Nothing was duplicated</source>
        <translation>何も複製されませんでした</translation>
    </message>
    <message>
        <source>There was nothing to copy, or no disk to copy to.</source>
        <translation>コピーするもの、またはコピー先のディスクがありませんでした。</translation>
    </message>
    <message>
        <source>Waiting for bay %1: %2</source>
        <translation>ベイ %1 待ち: %2</translation>
    </message>
    <message>
        <source>Erased</source>
        <translation>消去済み</translation>
    </message>
    <message>
        <source>Not erased</source>
        <translation>消去できず</translation>
    </message>
    <message>
        <source>Erasing...</source>
        <translation>消去中...</translation>
    </message>
    <message>
        <source>To be erased</source>
        <translation>消去予定</translation>
    </message>
    <message>
        <source>Erasing disk %1 of %2: bay %3</source>
        <translation>ディスクを消去中 (%1/%2): ベイ %3</translation>
    </message>
    <message>
        <source>No part</source>
        <translation>対象外</translation>
    </message>
    <message>
        <source>This device cannot be selected when it&apos;s used as a startup disk.</source>
        <translation>起動ディスクとして使われているため、この機器は選べません。</translation>
    </message>
    <message>
        <source>This device cannot be selected, because it includes a RAID set.</source>
        <translation>RAID セットが含まれるため、この機器は選べません。</translation>
    </message>
    <message>
        <source>The selected files are still being counted. The duplication goes on when that is done.</source>
        <translation>選択したファイルを数えています。終わり次第、複製を続けます。</translation>
    </message>
    <message>
        <source>Insufficient Disk Space</source>
        <translation>ディスクの空きが不足しています</translation>
    </message>
    <message>
        <source>There is insufficient free disk space on the destination drive(s).</source>
        <translation>コピー先の空き容量が足りません。</translation>
    </message>
    <message>
        <source>There is insufficient free disk space on the destination drive(s)</source>
        <translation>次のコピー先の空き容量が足りません:</translation>
    </message>
    <message>
        <source>

Press OK to continue duplicating to the remaining drive(s).</source>
        <translation>

OK を押すと、残りのドライブへ複製を続けます。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>中止</translation>
    </message>
    <message>
        <source>The destination disks are being looked at.</source>
        <translation>コピー先ディスクを調べています。</translation>
    </message>
    <message>
        <source>These disks will lose everything they hold:</source>
        <translation>次のディスクの内容はすべて失われます:</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>消去</translation>
    </message>
    <message>
        <source>One moment</source>
        <translation>お待ちください</translation>
    </message>
    <message>
        <source>What it has brought to these disks need not be copied again:</source>
        <translation>これらのディスクに書き込み済みのものは、再びコピーする必要がありません：</translation>
    </message>
    <message>
        <source>The last run was broken off</source>
        <translation>前回の実行は中断されました</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>続ける</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>今はしない</translation>
    </message>
</context>
<context>
    <name>orvana::Obsidio</name>
    <message>
        <source>Copyright © 2026 The Orvana Plurimo developers</source>
        <translation>Copyright © 2026 Orvana Plurimo 開発者</translation>
    </message>
    <message>
        <source>Version : %1</source>
        <translation>バージョン: %1</translation>
    </message>
</context>
<context>
    <name>orvana::OrvanaAppDelegate</name>
    <message>
        <source>About Orvana Plurimo</source>
        <translation>Orvana Plurimo について</translation>
    </message>
    <message>
        <source>Orvana Plurimo %1</source>
        <translation>Orvana Plurimo %1</translation>
    </message>
    <message>
        <source>Duplicates disks: one read, many writes, verified.</source>
        <translation>ディスクを複製します: 読み込み一回、書き込み多数、検証つき。</translation>
    </message>
    <message>
        <source>The selected files are still being counted.</source>
        <translation>選択したファイルをまだ数えています。</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>orvana::RunOptionsSheet</name>
    <message>
        <source>Options for this run</source>
        <translation>今回のオプション</translation>
    </message>
    <message>
        <source>The next run does this as well:</source>
        <translation>次の実行で追加して行うこと:</translation>
    </message>
</context>
<context>
    <name>orvana::RunReportWindow</name>
    <message>
        <source>Save Report</source>
        <translation>レポートを保存</translation>
    </message>
    <message>
        <source>Save Certificates as PDF</source>
        <translation>証明書を PDF で保存</translation>
    </message>
    <message>
        <source>Save Certificates as HTML</source>
        <translation>証明書を HTML で保存</translation>
    </message>
    <message>
        <source>Saved to %1.</source>
        <translation>%1 に保存しました。</translation>
    </message>
    <message>
        <source>The report could not be written to %1.</source>
        <translation>レポートを %1 に書き込めませんでした。</translation>
    </message>
</context>
<context>
    <name>orvana::RunWords</name>
    <message>
        <source>Copying</source>
        <translation>コピー中</translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation>検証中</translation>
    </message>
    <message>
        <source>Copying and verifying</source>
        <translation>コピーと検証中</translation>
    </message>
    <message>
        <source>Writing out</source>
        <translation>書き出し中</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>残り %1</translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n 件失敗</numerusform>
        </translation>
    </message>
    <message>
        <source>Verified</source>
        <translation>検証済み</translation>
    </message>
    <message>
        <source>Complete</source>
        <translation>完全</translation>
    </message>
    <message>
        <source>Not complete</source>
        <translation>不完全</translation>
    </message>
    <message>
        <source>Differs</source>
        <translation>不一致</translation>
    </message>
    <message>
        <source>Not compared</source>
        <translation>未比較</translation>
    </message>
    <message>
        <source>Not certain</source>
        <translation>未確定</translation>
    </message>
    <message>
        <source>Not finished</source>
        <translation>未完了</translation>
    </message>
    <message>
        <source>from the disk</source>
        <translation>ディスクから</translation>
    </message>
    <message>
        <source>in memory only</source>
        <translation>メモリ上のみ</translation>
    </message>
    <message>
        <source>not verified</source>
        <translation>検証なし</translation>
    </message>
    <message>
        <source>not all verified</source>
        <translation>一部未検証</translation>
    </message>
    <message>
        <source>read from memory</source>
        <translation>メモリから</translation>
    </message>
    <message numerus="yes">
        <source>%n differ</source>
        <translation>
            <numerusform>%n 件不一致</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not compared</source>
        <translation>
            <numerusform>%n 件未比較</numerusform>
        </translation>
    </message>
    <message>
        <source>not known to be on disk</source>
        <translation>ディスク上にあるか不明</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>%1, and something that is not mounted</source>
        <translation>%1 と、マウントされていない内容</translation>
    </message>
    <message>
        <source>something that is not mounted, or cannot be read</source>
        <translation>マウントされていない、または読めない内容</translation>
    </message>
    <message>
        <source>at least 1 file</source>
        <translation>1 ファイル以上</translation>
    </message>
    <message numerus="yes">
        <source>at least %n files</source>
        <translation>
            <numerusform>%n ファイル以上</numerusform>
        </translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1 ファイル</translation>
    </message>
    <message numerus="yes">
        <source>%n files</source>
        <translation>
            <numerusform>%n ファイル</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%2、%1</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>不明</translation>
    </message>
    <message>
        <source>%1: %2, serial number %3, holds %4, will be %5</source>
        <translation>%1: %2、製造番号 %3、内容: %4、消去後の名前: %5</translation>
    </message>
    <message>
        <source>%1: %2, serial number %3, now %4, holds %5, will be %6</source>
        <translation>%1: %2、製造番号 %3、現在の名前: %4、内容: %5、消去後の名前: %6</translation>
    </message>
    <message>
        <source>Eject each disk that holds every file at the end</source>
        <translation>終了時、全ファイルがそろったディスクを取り出す</translation>
    </message>
    <message>
        <source>Eject at the end</source>
        <translation>終了時に取り出す</translation>
    </message>
    <message>
        <source>&amp;Manifest on each copy:</source>
        <translation>各コピーのマニフェスト(&amp;M):</translation>
    </message>
    <message>
        <source>&amp;Digest of each file:</source>
        <translation>各ファイルのダイジェスト(&amp;D):</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>ASC MHL history</source>
        <translation>ASC MHL履歴</translation>
    </message>
    <message>
        <source>Checksum file</source>
        <translation>チェックサムファイル</translation>
    </message>
    <message>
        <source>Go on with the last run: what it has brought to the disks is not copied again</source>
        <translation>前回の実行を続ける：ディスクに書き込み済みのものは再びコピーしません</translation>
    </message>
    <message>
        <source>Compare what is there already with the source, and write only the blocks that differ</source>
        <translation>既にあるものをソースと比較し、異なるブロックだけを書き込む</translation>
    </message>
    <message>
        <source>Cut longer files that are there already to the length of their source</source>
        <translation>既にある長いファイルをソースの長さに切り詰める</translation>
    </message>
    <message>
        <source>When verifying, write blocks that differ once more</source>
        <translation>検証時に、異なるブロックをもう一度書き込む</translation>
    </message>
    <message>
        <source>Go on with the last run</source>
        <translation>前回の実行を続ける</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Exact lengths</source>
        <translation>正確な長さ</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>修復</translation>
    </message>
    <message>
        <source>&amp;Keep of the source:</source>
        <translation>コピー元から残すもの(&amp;K):</translation>
    </message>
    <message>
        <source>Content alone</source>
        <translation>内容だけ</translation>
    </message>
    <message>
        <source>Dates</source>
        <translation>日付</translation>
    </message>
    <message>
        <source>All it has</source>
        <translation>すべて</translation>
    </message>
    <message>
        <source>Copy nothing</source>
        <translation>何もコピーしない</translation>
    </message>
    <message>
        <source>Leave that disk out</source>
        <translation>そのディスクを外す</translation>
    </message>
    <message>
        <source>Copy what can be copied</source>
        <translation>できるものだけコピーする</translation>
    </message>
    <message>
        <source>Do not look beforehand</source>
        <translation>事前に調べない</translation>
    </message>
    <message>
        <source>&amp;Where a disk cannot hold all:</source>
        <translation>全部は入らないディスクがあるとき(&amp;W):</translation>
    </message>
    <message>
        <source>Ask each disk how it is, and leave out one that calls itself failing</source>
        <translation>各ディスクの状態を調べ、自ら故障を告げるものを除く</translation>
    </message>
    <message>
        <source>Health</source>
        <translation>状態</translation>
    </message>
</context>
<context>
    <name>orvana::TBDeviceViewController</name>
    <message>
        <source>&amp;Orvana Storage Device :</source>
        <translation>Orvana ストレージ機器(&amp;O):</translation>
    </message>
    <message>
        <source>&amp;Orvana Storage Device (%1) :</source>
        <translation>Orvana ストレージ機器(&amp;O) (%1):</translation>
    </message>
</context>
<context>
    <name>orvana::VerifyWindow</name>
    <message>
        <source>&amp;Record the result on the disks</source>
        <translation>結果をディスクに記録(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Add folder...</source>
        <translation>フォルダを追加(&amp;A)...</translation>
    </message>
    <message>
        <source>Verify Disks</source>
        <translation>ディスクの検証</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>見つかったこと</translation>
    </message>
    <message>
        <source>Appends the result to the history on each disk, as its next generation.</source>
        <translation>結果を各ディスクの履歴に次の世代として追加します。</translation>
    </message>
    <message>
        <source>Each ticked disk is read in full and compared with the list of files on it. The source is not needed.</source>
        <translation>チェックした各ディスクをすべて読み取り、そのディスク上のファイル一覧と比べます。コピー元は必要ありません。</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>Disk</source>
        <translation>ディスク</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>読み取り</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>判定</translation>
    </message>
    <message>
        <source>Disks</source>
        <translation>ディスク</translation>
    </message>
    <message>
        <source>Add a Folder to Verify</source>
        <translation>検証するフォルダを追加</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>停止(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>検証(&amp;V)</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%2中%1</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>停止しました</translation>
    </message>
    <message>
        <source>There is no list of files</source>
        <translation>ファイル一覧がありません</translation>
    </message>
    <message>
        <source>Not verified</source>
        <translation>検証できません</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>完全</translation>
    </message>
    <message>
        <source>Not whole</source>
        <translation>不完全</translation>
    </message>
</context>
<context>
    <name>orvana::VersionWindow</name>
    <message>
        <source>A new version is available for download at</source>
        <translation>新しいバージョンは次からダウンロードできます</translation>
    </message>
    <message>
        <source>You are running the most current version of</source>
        <translation>最新バージョンを使用しています:</translation>
    </message>
    <message>
        <source>Orvana Plurimo</source>
        <translation>Orvana Plurimo</translation>
    </message>
</context>
</TS>
