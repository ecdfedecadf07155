<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>BaySetupSheet</name>
    <message>
        <source>Set up bays - Orvana Plurimo</source>
        <translation>Schächte einrichten - Orvana Plurimo</translation>
    </message>
    <message>
        <source>Name of the &amp;enclosure:</source>
        <translation>Name des &amp;Gehäuses:</translation>
    </message>
    <message>
        <source>Name of the enclosure</source>
        <translation>Name des Gehäuses</translation>
    </message>
    <message>
        <source>for example: Desk dock</source>
        <translation>zum Beispiel: Dock am Tisch</translation>
    </message>
    <message>
        <source>Bay A</source>
        <translation>Schacht A</translation>
    </message>
    <message>
        <source>Bay B</source>
        <translation>Schacht B</translation>
    </message>
    <message>
        <source>Bay C</source>
        <translation>Schacht C</translation>
    </message>
    <message>
        <source>Bay D</source>
        <translation>Schacht D</translation>
    </message>
    <message>
        <source>&amp;No such bay</source>
        <translation>&amp;Kein solcher Schacht</translation>
    </message>
    <message>
        <source>The enclosure does not have the bay that is asked for</source>
        <translation>Das Gehäuse hat den Schacht nicht, nach dem gefragt wird</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>&amp;Fertig</translation>
    </message>
    <message>
        <source>Writes the enclosure</source>
        <translation>Schreibt das Gehäuse</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>CopyActionViewController</name>
    <message>
        <source>Options for this run</source>
        <translation>Optionen für diesen Lauf</translation>
    </message>
</context>
<context>
    <name>Core</name>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Unformatted</source>
        <translation>Unformatiert</translation>
    </message>
    <message>
        <source>Select an Orvana Storage Device</source>
        <translation>Orvana-Speichergerät wählen</translation>
    </message>
    <message>
        <source>Source Disk (Slot-A)</source>
        <translation>Quelldisk (Slot-A)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-A)</source>
        <translation>Zieldisk (Slot-A)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-B)</source>
        <translation>Zieldisk (Slot-B)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-C)</source>
        <translation>Zieldisk (Slot-C)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-D)</source>
        <translation>Zieldisk (Slot-D)</translation>
    </message>
    <message>
        <source>Duplicating %1</source>
        <translation>Dupliziert %1</translation>
    </message>
    <message>
        <source>Verifying File ...</source>
        <translation>Datei wird geprüft ...</translation>
    </message>
    <message>
        <source>Verifying File ... Failed</source>
        <translation>Datei wird geprüft ... fehlgeschlagen</translation>
    </message>
    <message>
        <source>Verifying File ... Succeeded</source>
        <translation>Datei wird geprüft ... erfolgreich</translation>
    </message>
    <message>
        <source>Erasing the destination disks. The window answers again when it is done.</source>
        <translation>Die Zieldisks werden gelöscht. Danach antwortet das Fenster wieder.</translation>
    </message>
    <message>
        <source>Eject %1</source>
        <translation>Auswerfen: %1</translation>
    </message>
    <message>
        <source>Mount %1</source>
        <translation>Einhängen: %1</translation>
    </message>
    <message>
        <source>You must select a Orvana Storage Device first.</source>
        <translation>Wählen Sie zuerst ein Orvana-Speichergerät.</translation>
    </message>
    <message>
        <source>The selected device is no longer there.</source>
        <translation>Das gewählte Gerät ist nicht mehr da.</translation>
    </message>
    <message>
        <source>Another device has taken the place of the selected one.</source>
        <translation>Ein anderes Gerät ist an die Stelle des gewählten getreten.</translation>
    </message>
    <message>
        <source>This device cannot be selected when it&apos;s used as a startup disk.</source>
        <translation>Dieses Gerät kann nicht gewählt werden, weil es als Startdisk dient.</translation>
    </message>
    <message>
        <source>Nothing is selected to be copied, so no disk is erased.</source>
        <translation>Es ist nichts zum Kopieren gewählt, also wird keine Disk gelöscht.</translation>
    </message>
    <message>
        <source>The source is not there any more, or another disk has taken its place. Nothing was touched. Choose the source again.</source>
        <translation>Die Quelle ist nicht mehr da, oder eine andere Disk ist an ihrer Stelle. Nichts wurde angerührt. Wählen Sie die Quelle neu.</translation>
    </message>
    <message>
        <source>The source is not there any more, or another disk has taken its place. Nothing was copied; the report says which disks were erased. Choose the source again.</source>
        <translation>Die Quelle ist nicht mehr da, oder eine andere Disk ist an ihrer Stelle. Nichts wurde kopiert; der Bericht sagt, welche Disks gelöscht wurden. Wählen Sie die Quelle neu.</translation>
    </message>
    <message>
        <source>A disk of the run before does not answer. Nothing was erased.</source>
        <translation>Eine Disk des vorigen Laufs antwortet nicht. Nichts wurde gelöscht.</translation>
    </message>
    <message>
        <source>The device is not the one that was chosen when the start began. Nothing was touched.</source>
        <translation>Das Gerät ist nicht mehr das beim Start gewählte. Nichts wurde angerührt.</translation>
    </message>
    <message>
        <source>The disks are not those that were shown any more. Nothing was touched.</source>
        <translation>Die Disks sind nicht mehr die angezeigten. Nichts wurde angerührt.</translation>
    </message>
    <message>
        <source>it carries the source</source>
        <translation>auf ihr liegt die Quelle</translation>
    </message>
    <message>
        <source>it cannot be told from a disk of the source</source>
        <translation>sie ist von einer Disk der Quelle nicht zu unterscheiden</translation>
    </message>
    <message>
        <source>it is the start-up disk</source>
        <translation>sie ist die Startdisk</translation>
    </message>
    <message>
        <source>it belongs to a RAID set</source>
        <translation>sie gehört zu einem RAID-Verbund</translation>
    </message>
    <message>
        <source>it has no device node</source>
        <translation>sie hat keine Gerätedatei</translation>
    </message>
    <message>
        <source>another disk claims the same place</source>
        <translation>eine andere Disk beansprucht denselben Platz</translation>
    </message>
    <message>
        <source>its volume has no name</source>
        <translation>ihr Volume hat keinen Namen</translation>
    </message>
    <message>
        <source>its volume is not mounted</source>
        <translation>ihr Volume ist nicht eingehängt</translation>
    </message>
    <message>
        <source>it is not the disk that was shown</source>
        <translation>sie ist nicht die angezeigte Disk</translation>
    </message>
    <message>
        <source>its erase did not succeed</source>
        <translation>das Löschen gelang nicht</translation>
    </message>
    <message>
        <source>it no longer holds the volume that was shown</source>
        <translation>das angezeigte Volume ist nicht mehr darauf</translation>
    </message>
    <message>
        <source>another run is at work on its volume</source>
        <translation>ein anderer Lauf arbeitet auf ihrem Volume</translation>
    </message>
    <message>
        <source>its volume is mounted read-only</source>
        <translation>ihr Volume ist nur lesbar eingehängt</translation>
    </message>
    <message>
        <source>the selection does not fit</source>
        <translation>die Auswahl passt nicht</translation>
    </message>
    <message>
        <source>a bay before it shows the same name</source>
        <translation>ein Schacht davor zeigt denselben Namen</translation>
    </message>
    <message>
        <source>the erase was stopped before it</source>
        <translation>das Löschen wurde vorher angehalten</translation>
    </message>
    <message>
        <source>the disk utility could not be started</source>
        <translation>das Disk-Dienstprogramm konnte nicht gestartet werden</translation>
    </message>
    <message>
        <source>a disk needs a name</source>
        <translation>eine Disk braucht einen Namen</translation>
    </message>
    <message>
        <source>this cannot be the name of a disk</source>
        <translation>so kann eine Disk nicht heißen</translation>
    </message>
    <message>
        <source>a name cannot hold &quot;/&quot;</source>
        <translation>ein Name kann kein „/“ enthalten</translation>
    </message>
    <message>
        <source>a name is text on one line</source>
        <translation>ein Name ist Text in einer Zeile</translation>
    </message>
    <message>
        <source>this is the name of the source</source>
        <translation>so heißt die Quelle</translation>
    </message>
    <message>
        <source>a name cannot begin or end with a blank, nor hold two in a row</source>
        <translation>ein Name kann nicht mit einem Leerzeichen beginnen oder enden oder zwei hintereinander enthalten</translation>
    </message>
    <message>
        <source>Not ejected:</source>
        <translation>Nicht ausgeworfen:</translation>
    </message>
    <message>
        <source>Choose the enclosure first, and open the job when no run goes on.</source>
        <translation>Wählen Sie zuerst das Gehäuse, und öffnen Sie den Auftrag, wenn kein Lauf im Gange ist.</translation>
    </message>
    <message>
        <source>Nothing is ticked, so there is no job to save.</source>
        <translation>Nichts ist angehakt, also gibt es keinen Auftrag zu sichern.</translation>
    </message>
    <message>
        <source>the job could not be written</source>
        <translation>der Auftrag konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the source of the job is not there</source>
        <translation>die Quelle des Auftrags ist nicht da</translation>
    </message>
    <message>
        <source>two volumes have the id of the job&apos;s source</source>
        <translation>zwei Volumes haben die Kennung der Quelle des Auftrags</translation>
    </message>
    <message>
        <source>another source has the same name; rename one of them</source>
        <translation>eine andere Quelle heißt ebenso; benennen Sie eine um</translation>
    </message>
    <message>
        <source>no such file or folder in the source</source>
        <translation>keine solche Datei und kein solcher Ordner in der Quelle</translation>
    </message>
    <message>
        <source>The demo cannot be started.</source>
        <translation>Die Demo kann nicht gestartet werden.</translation>
    </message>
    <message>
        <source>Disks are at work. Bays can be set up when that has ended.</source>
        <translation>Disks sind bei der Arbeit. Danach können Schächte eingerichtet werden.</translation>
    </message>
    <message>
        <source>an enclosure needs two to four bays</source>
        <translation>ein Gehäuse braucht zwei bis vier Schächte</translation>
    </message>
    <message>
        <source>an ASC MHL manifest cannot hold sha256 digests</source>
        <translation>ein ASC-MHL-Manifest kann keine sha256-Prüfsummen enthalten</translation>
    </message>
    <message>
        <source>a checksum file cannot hold c4 digests</source>
        <translation>eine Prüfsummendatei kann keine c4-Prüfsummen enthalten</translation>
    </message>
    <message>
        <source>A run that goes on with the last one erases no disk. Switch one of the two off.</source>
        <translation>Ein Lauf, der den letzten fortsetzt, löscht keine Disk. Schalten Sie eines von beiden aus.</translation>
    </message>
    <message>
        <source>A production line is armed. Disarm it first.</source>
        <translation>Eine Fertigungslinie ist scharf. Schalten Sie sie zuerst ab.</translation>
    </message>
    <message>
        <source>it was in the bay already</source>
        <translation>sie war schon im Schacht</translation>
    </message>
    <message>
        <source>its countdown was stopped</source>
        <translation>ihr Countdown wurde angehalten</translation>
    </message>
    <message>
        <source>it has no serial number</source>
        <translation>sie hat keine Seriennummer</translation>
    </message>
    <message>
        <source>a disk with its serial number is in another bay</source>
        <translation>eine Disk mit ihrer Seriennummer ist in einem anderen Schacht</translation>
    </message>
    <message>
        <source>as many disks as are wanted are done or in work</source>
        <translation>so viele Disks wie gewünscht sind fertig oder in Arbeit</translation>
    </message>
    <message>
        <source>the line is paused</source>
        <translation>die Linie pausiert</translation>
    </message>
    <message>
        <source>the line has ended</source>
        <translation>die Linie ist beendet</translation>
    </message>
    <message>
        <source>no more disks were wanted for now</source>
        <translation>vorerst wurden keine Disks mehr gewünscht</translation>
    </message>
    <message>
        <source>a line counts only disks that were verified; the job does not verify</source>
        <translation>eine Linie zählt nur geprüfte Disks; der Auftrag prüft nicht</translation>
    </message>
    <message>
        <source>a line begins each disk anew; the job goes on with the last run</source>
        <translation>eine Linie beginnt jede Disk neu; der Auftrag setzt den letzten Lauf fort</translation>
    </message>
    <message>
        <source>the names of disks in two bays would be the same; put {n} or {bay} into the pattern</source>
        <translation>die Namen der Disks in zwei Schächten wären gleich; setzen Sie {n} oder {bay} in das Muster</translation>
    </message>
    <message>
        <source>it calls itself failing</source>
        <translation>sie meldet sich selbst defekt</translation>
    </message>
    <message>
        <source>good</source>
        <translation>gut</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>nicht bekannt</translation>
    </message>
    <message>
        <source>calls itself failing</source>
        <translation>meldet sich selbst defekt</translation>
    </message>
    <message>
        <source>1 bad sector</source>
        <translation>1 defekter Sektor</translation>
    </message>
    <message>
        <source>%1 bad sectors</source>
        <translation>%1 defekte Sektoren</translation>
    </message>
    <message>
        <source>%1 of them new</source>
        <translation>%1 davon neu</translation>
    </message>
    <message>
        <source>1 new error</source>
        <translation>1 neuer Fehler</translation>
    </message>
    <message>
        <source>%1 new errors</source>
        <translation>%1 neue Fehler</translation>
    </message>
    <message>
        <source>hot</source>
        <translation>heiß</translation>
    </message>
    <message>
        <source>its temperature is out of its own limits</source>
        <translation>die Temperatur liegt außerhalb der eigenen Grenzen</translation>
    </message>
    <message>
        <source>the link is down to 1.5 Gbps</source>
        <translation>die Verbindung läuft nur mit 1.5 Gbps</translation>
    </message>
    <message>
        <source>1 value at its limit</source>
        <translation>1 Wert am Grenzwert</translation>
    </message>
    <message>
        <source>%1 values at its limit</source>
        <translation>%1 Werte am Grenzwert</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 Stunde</translation>
    </message>
    <message>
        <source>%1 hours</source>
        <translation>%1 Stunden</translation>
    </message>
</context>
<context>
    <name>DiskInfoViewController</name>
    <message>
        <source>So&amp;urce</source>
        <translation>Q&amp;uelle</translation>
    </message>
    <message>
        <source>Source disk</source>
        <translation>Quelldisk</translation>
    </message>
    <message>
        <source>Volume name of source</source>
        <translation>Volumename der Quelle</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Model of source</source>
        <translation>Modell der Quelle</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>Seriennr.</translation>
    </message>
    <message>
        <source>Serial number of source</source>
        <translation>Seriennummer der Quelle</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Frei</translation>
    </message>
    <message>
        <source>Free space of source</source>
        <translation>Freier Platz der Quelle</translation>
    </message>
    <message>
        <source>Capacity</source>
        <translation>Kapazität</translation>
    </message>
    <message>
        <source>Capacity of source</source>
        <translation>Kapazität der Quelle</translation>
    </message>
    <message>
        <source>Slot-A</source>
        <translation>Slot-A</translation>
    </message>
    <message>
        <source>Volume name of bay A</source>
        <translation>Volumename von Schacht A</translation>
    </message>
    <message>
        <source>Model of bay A</source>
        <translation>Modell in Schacht A</translation>
    </message>
    <message>
        <source>Serial number of bay A</source>
        <translation>Seriennummer in Schacht A</translation>
    </message>
    <message>
        <source>Free space of bay A</source>
        <translation>Freier Platz in Schacht A</translation>
    </message>
    <message>
        <source>Capacity of bay A</source>
        <translation>Kapazität in Schacht A</translation>
    </message>
    <message>
        <source>Does not fit</source>
        <translation>Passt nicht</translation>
    </message>
    <message>
        <source>Warning for bay A</source>
        <translation>Warnung für Schacht A</translation>
    </message>
    <message>
        <source>RAID</source>
        <translation>RAID</translation>
    </message>
    <message>
        <source>RAID marker of bay A</source>
        <translation>RAID-Hinweis von Schacht A</translation>
    </message>
    <message>
        <source>Slot-B</source>
        <translation>Slot-B</translation>
    </message>
    <message>
        <source>Volume name of bay B</source>
        <translation>Volumename von Schacht B</translation>
    </message>
    <message>
        <source>Model of bay B</source>
        <translation>Modell in Schacht B</translation>
    </message>
    <message>
        <source>Serial number of bay B</source>
        <translation>Seriennummer in Schacht B</translation>
    </message>
    <message>
        <source>Free space of bay B</source>
        <translation>Freier Platz in Schacht B</translation>
    </message>
    <message>
        <source>Capacity of bay B</source>
        <translation>Kapazität in Schacht B</translation>
    </message>
    <message>
        <source>Warning for bay B</source>
        <translation>Warnung für Schacht B</translation>
    </message>
    <message>
        <source>RAID marker of bay B</source>
        <translation>RAID-Hinweis von Schacht B</translation>
    </message>
    <message>
        <source>Slot-C</source>
        <translation>Slot-C</translation>
    </message>
    <message>
        <source>Volume name of bay C</source>
        <translation>Volumename von Schacht C</translation>
    </message>
    <message>
        <source>Model of bay C</source>
        <translation>Modell in Schacht C</translation>
    </message>
    <message>
        <source>Serial number of bay C</source>
        <translation>Seriennummer in Schacht C</translation>
    </message>
    <message>
        <source>Free space of bay C</source>
        <translation>Freier Platz in Schacht C</translation>
    </message>
    <message>
        <source>Capacity of bay C</source>
        <translation>Kapazität in Schacht C</translation>
    </message>
    <message>
        <source>Warning for bay C</source>
        <translation>Warnung für Schacht C</translation>
    </message>
    <message>
        <source>RAID marker of bay C</source>
        <translation>RAID-Hinweis von Schacht C</translation>
    </message>
    <message>
        <source>Slot-D</source>
        <translation>Slot-D</translation>
    </message>
    <message>
        <source>Volume name of bay D</source>
        <translation>Volumename von Schacht D</translation>
    </message>
    <message>
        <source>Model of bay D</source>
        <translation>Modell in Schacht D</translation>
    </message>
    <message>
        <source>Serial number of bay D</source>
        <translation>Seriennummer in Schacht D</translation>
    </message>
    <message>
        <source>Free space of bay D</source>
        <translation>Freier Platz in Schacht D</translation>
    </message>
    <message>
        <source>Capacity of bay D</source>
        <translation>Kapazität in Schacht D</translation>
    </message>
    <message>
        <source>Warning for bay D</source>
        <translation>Warnung für Schacht D</translation>
    </message>
    <message>
        <source>RAID marker of bay D</source>
        <translation>RAID-Hinweis von Schacht D</translation>
    </message>
    <message>
        <source>E&amp;ject</source>
        <translation>Aus&amp;werfen</translation>
    </message>
    <message>
        <source>Eject source disk</source>
        <translation>Quelldisk auswerfen</translation>
    </message>
    <message>
        <source>Eject the source disk</source>
        <translation>Wirft die Quelldisk aus</translation>
    </message>
    <message>
        <source>Destinations</source>
        <translation>Ziele</translation>
    </message>
    <message>
        <source>Eject A&amp;ll</source>
        <translation>A&amp;lle auswerfen</translation>
    </message>
    <message>
        <source>Eject destination disks</source>
        <translation>Zieldisks auswerfen</translation>
    </message>
    <message>
        <source>Eject all destination disks</source>
        <translation>Wirft alle Zieldisks aus</translation>
    </message>
</context>
<context>
    <name>FileListViewController</name>
    <message>
        <source>Files and folders to duplicate</source>
        <translation>Zu duplizierende Dateien und Ordner</translation>
    </message>
    <message>
        <source>Ticked files</source>
        <translation>Angehakte Dateien</translation>
    </message>
</context>
<context>
    <name>LogDataWindows</name>
    <message>
        <source>Run Logs</source>
        <translation>Protokolle</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Opens the folder of the logs in the file manager</source>
        <translation>Öffnet den Ordner der Protokolle in der Dateiverwaltung</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Neu lesen</translation>
    </message>
    <message>
        <source>Reads the folder of the logs again</source>
        <translation>Liest den Ordner der Protokolle erneut</translation>
    </message>
    <message>
        <source>Logs</source>
        <translation>Protokolle</translation>
    </message>
    <message>
        <source>The newest log comes first. Backspace or Delete removes the selected one.</source>
        <translation>Das neueste Protokoll steht oben. Rücktaste oder Entf löscht das ausgewählte.</translation>
    </message>
    <message>
        <source>Find in the log</source>
        <translation>Im Protokoll suchen</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>Vorheriges suchen</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>Nächstes suchen</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>Text of the log</source>
        <translation>Text des Protokolls</translation>
    </message>
    <message>
        <source>Delete All Logs</source>
        <translation>Alle Protokolle löschen</translation>
    </message>
    <message>
        <source>Removes every log in the list and its report at once, without asking.</source>
        <translation>Löscht jedes Protokoll der Liste samt Bericht sofort und ohne Rückfrage.</translation>
    </message>
    <message>
        <source>Removes every log in the list and its report at once, without asking</source>
        <translation>Löscht jedes Protokoll der Liste samt Bericht sofort und ohne Rückfrage</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
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
        <translation>Meldung zum Fortschritt</translation>
    </message>
    <message>
        <source>Stage of the run</source>
        <translation>Abschnitt des Laufs</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>This file</source>
        <translation>Diese Datei</translation>
    </message>
    <message>
        <source>The whole run</source>
        <translation>Der ganze Lauf</translation>
    </message>
    <message>
        <source>The current file</source>
        <translation>Die aktuelle Datei</translation>
    </message>
    <message>
        <source>Progress of the whole run</source>
        <translation>Fortschritt des ganzen Laufs</translation>
    </message>
    <message>
        <source>Progress of the current file</source>
        <translation>Fortschritt der aktuellen Datei</translation>
    </message>
    <message>
        <source>?</source>
        <translation>?</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>How to use Orvana Plurimo</source>
        <translation>Wie man Orvana Plurimo benutzt</translation>
    </message>
</context>
<context>
    <name>NoEnclosureView</name>
    <message>
        <source>No enclosure was found.</source>
        <translation>Es wurde kein Gehäuse gefunden.</translation>
    </message>
    <message>
        <source>Set up &amp;bays...</source>
        <translation>Schächte ein&amp;richten...</translation>
    </message>
    <message>
        <source>Says which ports of a dock or a case are the bays of an enclosure</source>
        <translation>Legt fest, welche Anschlüsse eines Docks die Schächte eines Gehäuses sind</translation>
    </message>
    <message>
        <source>&amp;Try the demo</source>
        <translation>De&amp;mo ansehen</translation>
    </message>
    <message>
        <source>Opens a second window on a machine that is simulated</source>
        <translation>Öffnet ein zweites Fenster mit einem simulierten Rechner</translation>
    </message>
</context>
<context>
    <name>Obsidio</name>
    <message>
        <source>Orvana Plurimo for Obsidio</source>
        <translation>Orvana Plurimo für Obsidio</translation>
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
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>ProgressBarViewController</name>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Progress of the whole run</source>
        <translation>Fortschritt des ganzen Laufs</translation>
    </message>
    <message>
        <source>Progress of the current file</source>
        <translation>Fortschritt der aktuellen Datei</translation>
    </message>
</context>
<context>
    <name>RunReportWindow</name>
    <message>
        <source>Run Report - Orvana Plurimo</source>
        <translation>Bericht - Orvana Plurimo</translation>
    </message>
    <message>
        <source>What each destination got</source>
        <translation>Was jedes Ziel erhalten hat</translation>
    </message>
    <message>
        <source>Files that failed or differ</source>
        <translation>Dateien, die fehlschlugen oder abweichen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Sichern</translation>
    </message>
    <message>
        <source>Save the report file (JSON)</source>
        <translation>Sichert die Berichtsdatei (JSON)</translation>
    </message>
    <message>
        <source>Save as &amp;PDF</source>
        <translation>Als &amp;PDF sichern</translation>
    </message>
    <message>
        <source>Save a certificate for each disk as PDF</source>
        <translation>Sichert für jede Disk ein Zertifikat als PDF</translation>
    </message>
    <message>
        <source>Save as &amp;HTML</source>
        <translation>Als &amp;HTML sichern</translation>
    </message>
    <message>
        <source>Save a certificate for each disk as HTML</source>
        <translation>Sichert für jede Disk ein Zertifikat als HTML</translation>
    </message>
    <message>
        <source>Open &amp;log</source>
        <translation>Pro&amp;tokoll öffnen</translation>
    </message>
    <message>
        <source>Clos&amp;e</source>
        <translation>Schli&amp;eßen</translation>
    </message>
</context>
<context>
    <name>TBDeviceViewController</name>
    <message>
        <source>&amp;Not used...</source>
        <translation>&amp;Nicht benutzt...</translation>
    </message>
    <message>
        <source>Says why devices that are attached cannot be used</source>
        <translation>Sagt, warum angeschlossene Geräte nicht benutzt werden können</translation>
    </message>
    <message>
        <source>Orvana storage device</source>
        <translation>Orvana-Speichergerät</translation>
    </message>
</context>
<context>
    <name>VersionWindow</name>
    <message>
        <source>Check for Updates</source>
        <translation>Nach Updates suchen</translation>
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
        <translation>Lauf von %1</translation>
    </message>
    <message>
        <source>State of %1</source>
        <translation>Zustand von %1</translation>
    </message>
    <message>
        <source>Progress of %1</source>
        <translation>Fortschritt von %1</translation>
    </message>
    <message>
        <source>Rate of %1</source>
        <translation>Tempo von %1</translation>
    </message>
    <message>
        <source>Time left for %1</source>
        <translation>Restzeit von %1</translation>
    </message>
</context>
<context>
    <name>orvana::BaySetupSheet</name>
    <message>
        <source>no such bay</source>
        <translation>kein solcher Schacht</translation>
    </message>
    <message>
        <source>Put a disk into bay %1. If one is there already, take it out and put it in again.</source>
        <translation>Stecken Sie eine Disk in Schacht %1. Steckt dort schon eine, ziehen Sie sie heraus und stecken Sie sie wieder hinein.</translation>
    </message>
    <message>
        <source>All bays have been asked for. Press Cancel and begin again.</source>
        <translation>Nach allen Schächten wurde gefragt. Drücken Sie Abbrechen und beginnen Sie von vorn.</translation>
    </message>
    <message>
        <source>All bays have been asked for.</source>
        <translation>Nach allen Schächten wurde gefragt.</translation>
    </message>
    <message>
        <source>Type a name for the enclosure.</source>
        <translation>Geben Sie einen Namen für das Gehäuse ein.</translation>
    </message>
    <message>
        <source>Waiting for the permission to write it ...</source>
        <translation>Wartet auf die Erlaubnis zum Schreiben ...</translation>
    </message>
    <message>
        <source>Done writes an enclosure with %1 bays.</source>
        <translation>„Fertig“ schreibt ein Gehäuse mit %1 Schächten.</translation>
    </message>
    <message>
        <source>waiting for a disk</source>
        <translation>wartet auf eine Disk</translation>
    </message>
</context>
<context>
    <name>orvana::CopyActionViewController</name>
    <message>
        <source>&amp;Erase destination disk(s)</source>
        <translation>&amp;Zieldisk(s) löschen</translation>
    </message>
    <message>
        <source>Erase destination disk(s)</source>
        <translation>Zieldisk(s) löschen</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>&amp;Prüfen</translation>
    </message>
    <message>
        <source>Verify</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Start</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>orvana::DiskInfoViewController</name>
    <message>
        <source>bay %1</source>
        <translation>Schacht %1</translation>
    </message>
    <message>
        <source>(no name)</source>
        <translation>(ohne Namen)</translation>
    </message>
</context>
<context>
    <name>orvana::FileListViewController</name>
    <message>
        <source>%1 File(s)     Size : %2</source>
        <translation>%1 Datei(en)     Größe: %2</translation>
    </message>
</context>
<context>
    <name>orvana::LineTile</name>
    <message>
        <source>Not armed</source>
        <translation>Nicht scharf</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>Wartet</translation>
    </message>
    <message>
        <source>Looking</source>
        <translation>Sieht nach</translation>
    </message>
    <message>
        <source>Not taken</source>
        <translation>Nicht genommen</translation>
    </message>
    <message>
        <source>Asking</source>
        <translation>Fragt</translation>
    </message>
    <message>
        <source>Begins in</source>
        <translation>Beginnt in</translation>
    </message>
    <message>
        <source>Erasing</source>
        <translation>Löscht</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation>Prüft</translation>
    </message>
    <message>
        <source>Ejecting</source>
        <translation>Wirft aus</translation>
    </message>
    <message>
        <source>Passed</source>
        <translation>Bestanden</translation>
    </message>
    <message>
        <source>Not proven</source>
        <translation>Nicht belegt</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Yes, write this disk</source>
        <translation>Ja, diese Disk beschreiben</translation>
    </message>
    <message>
        <source>State of bay %1</source>
        <translation>Zustand von Schacht %1</translation>
    </message>
    <message>
        <source>Progress of bay %1</source>
        <translation>Fortschritt von Schacht %1</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
</context>
<context>
    <name>orvana::LineWindow</name>
    <message>
        <source>Production Line</source>
        <translation>Fertigungslinie</translation>
    </message>
    <message>
        <source>Each disk that comes into an armed bay gets this, and is verified: %1, files: %2, %3</source>
        <translation>Jede Disk, die in einen scharfen Schacht kommt, erhält dies und wird geprüft: %1, Dateien: %2, %3</translation>
    </message>
    <message>
        <source>&amp;Line:</source>
        <translation>&amp;Linie:</translation>
    </message>
    <message>
        <source>&amp;Title:</source>
        <translation>&amp;Titel:</translation>
    </message>
    <message>
        <source>&amp;Number of disks:</source>
        <translation>A&amp;nzahl der Disks:</translation>
    </message>
    <message>
        <source>May hold {n:03} for the number, {serial}, {bay} and {date}</source>
        <translation>Kann {n:03} für die Nummer, {serial}, {bay} und {date} enthalten</translation>
    </message>
    <message>
        <source>N&amp;ames of the disks:</source>
        <translation>N&amp;amen der Disks:</translation>
    </message>
    <message>
        <source>Bay &amp;%1</source>
        <translation>Schacht &amp;%1</translation>
    </message>
    <message>
        <source>Armed bays:</source>
        <translation>Scharfe Schächte:</translation>
    </message>
    <message>
        <source>A&amp;rm</source>
        <translation>Scha&amp;rf schalten</translation>
    </message>
    <message>
        <source>Disks made</source>
        <translation>Fertige Disks</translation>
    </message>
    <message>
        <source>No &amp;more disks</source>
        <translation>Keine &amp;weiteren Disks</translation>
    </message>
    <message>
        <source>New line</source>
        <translation>Neue Linie</translation>
    </message>
    <message>
        <source>Disks are still in work.</source>
        <translation>Es sind noch Disks in Arbeit.</translation>
    </message>
    <message>
        <source>The words are &quot;%1&quot;.</source>
        <translation>Die Worte sind „%1“.</translation>
    </message>
    <message>
        <source>No bay is ticked.</source>
        <translation>Kein Schacht ist angekreuzt.</translation>
    </message>
    <message>
        <source>Any key, and any click beside a button, stops a countdown.</source>
        <translation>Jede Taste und jeder Klick neben einen Knopf hält einen Countdown an.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>&amp;Go on</source>
        <translation>Weiterma&amp;chen</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Pause</translation>
    </message>
    <message>
        <source>No more disks are taken: %1</source>
        <translation>Es werden keine Disks mehr genommen: %1</translation>
    </message>
    <message>
        <source>The window closes when the disks in work are done.</source>
        <translation>Das Fenster schließt sich, wenn die Disks in Arbeit fertig sind.</translation>
    </message>
    <message>
        <source>To be as&amp;ked about no disk&apos;s content, type &quot;%1&quot;:</source>
        <translation>Um bei &amp;keiner Disk nach ihrem Inhalt gefragt zu werden, „%1“ eintippen:</translation>
    </message>
</context>
<context>
    <name>orvana::LogDataWindows</name>
    <message>
        <source>This log is long. Only its end is shown, at most the last 10 MB.</source>
        <translation>Dieses Protokoll ist lang. Nur sein Ende wird gezeigt, höchstens die letzten 10 MB.</translation>
    </message>
</context>
<context>
    <name>orvana::MainMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Rescan</source>
        <translation>Neu &amp;einlesen</translation>
    </message>
    <message>
        <source>&amp;Logs</source>
        <translation>&amp;Protokolle</translation>
    </message>
    <message>
        <source>&amp;Open job...</source>
        <translation>Auftrag ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;Save job...</source>
        <translation>Auftrag &amp;sichern...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>Lau&amp;f</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Start</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>&amp;Prüfen</translation>
    </message>
    <message>
        <source>&amp;Erase Destination Disks</source>
        <translation>Zieldisks &amp;löschen</translation>
    </message>
    <message>
        <source>&amp;Options for this run...</source>
        <translation>&amp;Optionen für diesen Lauf...</translation>
    </message>
    <message>
        <source>E&amp;ject Source</source>
        <translation>&amp;Quelle auswerfen</translation>
    </message>
    <message>
        <source>Eject &amp;Destinations</source>
        <translation>&amp;Ziele auswerfen</translation>
    </message>
    <message>
        <source>&amp;Mount disks</source>
        <translation>Disks &amp;einhängen</translation>
    </message>
    <message>
        <source>Set up &amp;bays...</source>
        <translation>Schächte ein&amp;richten...</translation>
    </message>
    <message>
        <source>&amp;Last Report</source>
        <translation>Letzter &amp;Bericht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;How to Use</source>
        <translation>&amp;Anleitung</translation>
    </message>
    <message>
        <source>&amp;Check for Updates</source>
        <translation>Nach &amp;Updates suchen</translation>
    </message>
    <message>
        <source>&amp;About Orvana Plurimo</source>
        <translation>&amp;Über Orvana Plurimo</translation>
    </message>
    <message>
        <source>Verify dis&amp;ks...</source>
        <translation>&amp;Disks prüfen...</translation>
    </message>
    <message>
        <source>&amp;Go on with the last run</source>
        <translation>Letzten Lauf &amp;fortsetzen</translation>
    </message>
    <message>
        <source>&amp;Production line...</source>
        <translation>Fertig&amp;ungslinie...</translation>
    </message>
</context>
<context>
    <name>orvana::MainWindow</name>
    <message>
        <source>Orvana Plurimo, the disk duplicator</source>
        <translation>Orvana Plurimo, der Disk-Duplizierer</translation>
    </message>
    <message>
        <source>Version : %1</source>
        <translation>Version: %1</translation>
    </message>
    <message>
        <source>for Obsidio</source>
        <translation>für Obsidio</translation>
    </message>
    <message>
        <source>Not used</source>
        <translation>Nicht benutzt</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Ejected</source>
        <translation>Ausgeworfen</translation>
    </message>
    <message>
        <source>These disks can be taken out: %1</source>
        <translation>Diese Disks können herausgenommen werden: %1</translation>
    </message>
    <message>
        <source>Nothing to mount</source>
        <translation>Nichts einzuhängen</translation>
    </message>
    <message>
        <source>No disk in a bay has a volume that is not mounted.</source>
        <translation>Keine Disk in einem Schacht hat ein Volume, das nicht eingehängt ist.</translation>
    </message>
    <message>
        <source>%1, serial number %2, was not mounted: %3</source>
        <translation>%1, Seriennummer %2, wurde nicht eingehängt: %3</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Save Job</source>
        <translation>Auftrag sichern</translation>
    </message>
    <message>
        <source>Open Job</source>
        <translation>Auftrag öffnen</translation>
    </message>
    <message>
        <source>Jobs (*.plurimo)</source>
        <translation>Aufträge (*.plurimo)</translation>
    </message>
    <message>
        <source>Open log</source>
        <translation>Protokoll öffnen</translation>
    </message>
    <message>
        <source>Disks are being duplicated. If you quit now, the copies are not complete.</source>
        <translation>Es werden Disks dupliziert. Wenn Sie jetzt beenden, sind die Kopien nicht vollständig.</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Go On</source>
        <translation>Weitermachen</translation>
    </message>
    <message>
        <source>Infomation</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>You must select a Orvana Storage Device first.</source>
        <translation>Wählen Sie zuerst ein Orvana-Speichergerät.</translation>
    </message>
    <message>
        <source>File Copy Completed</source>
        <translation>Kopieren abgeschlossen</translation>
    </message>
    <message>
        <source>All files have been copied successfully.</source>
        <translation>Alle Dateien wurden erfolgreich kopiert.</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Duplication finished</source>
        <translation>Duplizieren beendet</translation>
    </message>
    <message>
        <source>The device was removed while files were being duplicated to it. The run has ended; its copies are not complete.</source>
        <translation>Das Gerät wurde entfernt, während Dateien darauf dupliziert wurden. Der Lauf ist beendet; seine Kopien sind nicht vollständig.</translation>
    </message>
    <message>
        <source>Duplication ended</source>
        <translation>Duplizieren abgebrochen</translation>
    </message>
    <message>
        <source>The device was removed. The copies are not complete.</source>
        <translation>Das Gerät wurde entfernt. Die Kopien sind nicht vollständig.</translation>
    </message>
    <message>
        <source>Nothing was duplicated</source>
        <translation>Nichts wurde dupliziert</translation>
    </message>
    <message>
        <source>There was nothing to copy, or no disk to copy to.</source>
        <translation>Es gab nichts zu kopieren oder keine Disk als Ziel.</translation>
    </message>
    <message>
        <source>Waiting for bay %1: %2</source>
        <translation>Wartet auf Schacht %1: %2</translation>
    </message>
    <message>
        <source>Erased</source>
        <translation>Gelöscht</translation>
    </message>
    <message>
        <source>Not erased</source>
        <translation>Nicht gelöscht</translation>
    </message>
    <message>
        <source>Erasing...</source>
        <translation>Löscht...</translation>
    </message>
    <message>
        <source>To be erased</source>
        <translation>Wird gelöscht</translation>
    </message>
    <message>
        <source>Erasing disk %1 of %2: bay %3</source>
        <translation>Löscht Disk %1 von %2: Schacht %3</translation>
    </message>
    <message>
        <source>No part</source>
        <translation>Nicht dabei</translation>
    </message>
    <message>
        <source>This device cannot be selected when it&apos;s used as a startup disk.</source>
        <translation>Dieses Gerät kann nicht gewählt werden, weil es als Startdisk dient.</translation>
    </message>
    <message>
        <source>This device cannot be selected, because it includes a RAID set.</source>
        <translation>Dieses Gerät kann nicht gewählt werden, weil es einen RAID-Verbund enthält.</translation>
    </message>
    <message>
        <source>The selected files are still being counted. The duplication goes on when that is done.</source>
        <translation>Die gewählten Dateien werden noch gezählt. Danach geht es mit dem Duplizieren weiter.</translation>
    </message>
    <message>
        <source>Insufficient Disk Space</source>
        <translation>Zu wenig Platz</translation>
    </message>
    <message>
        <source>There is insufficient free disk space on the destination drive(s).</source>
        <translation>Auf den Ziellaufwerken ist zu wenig freier Platz.</translation>
    </message>
    <message>
        <source>There is insufficient free disk space on the destination drive(s)</source>
        <translation>Zu wenig freier Platz ist auf diesen Ziellaufwerken:</translation>
    </message>
    <message>
        <source>

Press OK to continue duplicating to the remaining drive(s).</source>
        <translation>

Mit OK wird auf die übrigen Laufwerke dupliziert.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The destination disks are being looked at.</source>
        <translation>Die Zieldisks werden angesehen.</translation>
    </message>
    <message>
        <source>These disks will lose everything they hold:</source>
        <translation>Diese Disks verlieren alles, was auf ihnen ist:</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>One moment</source>
        <translation>Einen Moment</translation>
    </message>
    <message>
        <source>What it has brought to these disks need not be copied again:</source>
        <translation>Was er auf diese Disks gebracht hat, muss nicht noch einmal kopiert werden:</translation>
    </message>
    <message>
        <source>The last run was broken off</source>
        <translation>Der letzte Lauf wurde abgebrochen</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Jetzt nicht</translation>
    </message>
</context>
<context>
    <name>orvana::Obsidio</name>
    <message>
        <source>Copyright © 2026 The Orvana Plurimo developers</source>
        <translation>Copyright © 2026 Die Entwickler von Orvana Plurimo</translation>
    </message>
    <message>
        <source>Version : %1</source>
        <translation>Version: %1</translation>
    </message>
</context>
<context>
    <name>orvana::OrvanaAppDelegate</name>
    <message>
        <source>About Orvana Plurimo</source>
        <translation>Über Orvana Plurimo</translation>
    </message>
    <message>
        <source>Orvana Plurimo %1</source>
        <translation>Orvana Plurimo %1</translation>
    </message>
    <message>
        <source>Duplicates disks: one read, many writes, verified.</source>
        <translation>Dupliziert Disks: einmal lesen, vielfach schreiben, geprüft.</translation>
    </message>
    <message>
        <source>The selected files are still being counted.</source>
        <translation>Die ausgewählten Dateien werden noch gezählt.</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
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
        <translation>Optionen für diesen Lauf</translation>
    </message>
    <message>
        <source>The next run does this as well:</source>
        <translation>Der nächste Lauf macht auch das:</translation>
    </message>
</context>
<context>
    <name>orvana::RunReportWindow</name>
    <message>
        <source>Save Report</source>
        <translation>Bericht sichern</translation>
    </message>
    <message>
        <source>Save Certificates as PDF</source>
        <translation>Zertifikate als PDF sichern</translation>
    </message>
    <message>
        <source>Save Certificates as HTML</source>
        <translation>Zertifikate als HTML sichern</translation>
    </message>
    <message>
        <source>Saved to %1.</source>
        <translation>Gesichert als %1.</translation>
    </message>
    <message>
        <source>The report could not be written to %1.</source>
        <translation>Der Bericht konnte nicht nach %1 geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>orvana::RunWords</name>
    <message>
        <source>Copying</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation>Prüft</translation>
    </message>
    <message>
        <source>Copying and verifying</source>
        <translation>Kopiert und prüft</translation>
    </message>
    <message>
        <source>Writing out</source>
        <translation>Schreibt aus</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>noch %1</translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n fehlgeschlagen</numerusform>
            <numerusform>%n fehlgeschlagen</numerusform>
        </translation>
    </message>
    <message>
        <source>Verified</source>
        <translation>Geprüft</translation>
    </message>
    <message>
        <source>Complete</source>
        <translation>Vollständig</translation>
    </message>
    <message>
        <source>Not complete</source>
        <translation>Unvollständig</translation>
    </message>
    <message>
        <source>Differs</source>
        <translation>Weicht ab</translation>
    </message>
    <message>
        <source>Not compared</source>
        <translation>Nicht verglichen</translation>
    </message>
    <message>
        <source>Not certain</source>
        <translation>Nicht sicher</translation>
    </message>
    <message>
        <source>Not finished</source>
        <translation>Nicht beendet</translation>
    </message>
    <message>
        <source>from the disk</source>
        <translation>von der Disk gelesen</translation>
    </message>
    <message>
        <source>in memory only</source>
        <translation>nur im Speicher</translation>
    </message>
    <message>
        <source>not verified</source>
        <translation>nicht geprüft</translation>
    </message>
    <message>
        <source>not all verified</source>
        <translation>nicht alles geprüft</translation>
    </message>
    <message>
        <source>read from memory</source>
        <translation>aus dem Speicher gelesen</translation>
    </message>
    <message numerus="yes">
        <source>%n differ</source>
        <translation>
            <numerusform>%n weicht ab</numerusform>
            <numerusform>%n weichen ab</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not compared</source>
        <translation>
            <numerusform>%n nicht verglichen</numerusform>
            <numerusform>%n nicht verglichen</numerusform>
        </translation>
    </message>
    <message>
        <source>not known to be on disk</source>
        <translation>ob es auf der Disk ist, ist nicht bekannt</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>%1, and something that is not mounted</source>
        <translation>%1, und etwas, das nicht eingehängt ist</translation>
    </message>
    <message>
        <source>something that is not mounted, or cannot be read</source>
        <translation>etwas, das nicht eingehängt ist oder nicht gelesen werden kann</translation>
    </message>
    <message>
        <source>at least 1 file</source>
        <translation>mindestens 1 Datei</translation>
    </message>
    <message numerus="yes">
        <source>at least %n files</source>
        <translation>
            <numerusform>mindestens %n Datei</numerusform>
            <numerusform>mindestens %n Dateien</numerusform>
        </translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1 Datei</translation>
    </message>
    <message numerus="yes">
        <source>%n files</source>
        <translation>
            <numerusform>%n Datei</numerusform>
            <numerusform>%n Dateien</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 in %2</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>%1: %2, serial number %3, holds %4, will be %5</source>
        <translation>%1: %2, Seriennummer %3, enthält %4, wird %5</translation>
    </message>
    <message>
        <source>%1: %2, serial number %3, now %4, holds %5, will be %6</source>
        <translation>%1: %2, Seriennummer %3, jetzt %4, enthält %5, wird %6</translation>
    </message>
    <message>
        <source>Eject each disk that holds every file at the end</source>
        <translation>Am Ende jede Disk auswerfen, die alle Dateien hat</translation>
    </message>
    <message>
        <source>Eject at the end</source>
        <translation>Am Ende auswerfen</translation>
    </message>
    <message>
        <source>&amp;Manifest on each copy:</source>
        <translation>&amp;Manifest auf jeder Kopie:</translation>
    </message>
    <message>
        <source>&amp;Digest of each file:</source>
        <translation>&amp;Prüfsumme jeder Datei:</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>ASC MHL history</source>
        <translation>ASC-MHL-Historie</translation>
    </message>
    <message>
        <source>Checksum file</source>
        <translation>Prüfsummendatei</translation>
    </message>
    <message>
        <source>Go on with the last run: what it has brought to the disks is not copied again</source>
        <translation>Den letzten Lauf fortsetzen: Was er auf die Disks gebracht hat, wird nicht noch einmal kopiert</translation>
    </message>
    <message>
        <source>Compare what is there already with the source, and write only the blocks that differ</source>
        <translation>Vorhandenes mit der Quelle vergleichen und nur abweichende Blöcke schreiben</translation>
    </message>
    <message>
        <source>Cut longer files that are there already to the length of their source</source>
        <translation>Vorhandene längere Dateien auf die Länge ihrer Quelle kürzen</translation>
    </message>
    <message>
        <source>When verifying, write blocks that differ once more</source>
        <translation>Beim Prüfen abweichende Blöcke noch einmal schreiben</translation>
    </message>
    <message>
        <source>Go on with the last run</source>
        <translation>Letzten Lauf fortsetzen</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Exact lengths</source>
        <translation>Genaue Längen</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Reparieren</translation>
    </message>
    <message>
        <source>&amp;Keep of the source:</source>
        <translation>Von der Quelle &amp;behalten:</translation>
    </message>
    <message>
        <source>Content alone</source>
        <translation>Nur den Inhalt</translation>
    </message>
    <message>
        <source>Dates</source>
        <translation>Änderungsdaten</translation>
    </message>
    <message>
        <source>All it has</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>Copy nothing</source>
        <translation>Nichts kopieren</translation>
    </message>
    <message>
        <source>Leave that disk out</source>
        <translation>Diese Disk auslassen</translation>
    </message>
    <message>
        <source>Copy what can be copied</source>
        <translation>Kopieren, was geht</translation>
    </message>
    <message>
        <source>Do not look beforehand</source>
        <translation>Vorher nicht nachsehen</translation>
    </message>
    <message>
        <source>&amp;Where a disk cannot hold all:</source>
        <translation>&amp;Wo eine Disk nicht alles fasst:</translation>
    </message>
    <message>
        <source>Ask each disk how it is, and leave out one that calls itself failing</source>
        <translation>Jede Disk nach ihrem Zustand fragen und eine auslassen, die sich selbst defekt meldet</translation>
    </message>
    <message>
        <source>Health</source>
        <translation>Zustand</translation>
    </message>
</context>
<context>
    <name>orvana::TBDeviceViewController</name>
    <message>
        <source>&amp;Orvana Storage Device :</source>
        <translation>&amp;Orvana-Speichergerät:</translation>
    </message>
    <message>
        <source>&amp;Orvana Storage Device (%1) :</source>
        <translation>&amp;Orvana-Speichergerät (%1):</translation>
    </message>
</context>
<context>
    <name>orvana::VerifyWindow</name>
    <message>
        <source>&amp;Record the result on the disks</source>
        <translation>Ergebnis auf den Disks &amp;festhalten</translation>
    </message>
    <message>
        <source>&amp;Add folder...</source>
        <translation>Ordner &amp;hinzufügen...</translation>
    </message>
    <message>
        <source>Verify Disks</source>
        <translation>Disks prüfen</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>Was gefunden wurde</translation>
    </message>
    <message>
        <source>Appends the result to the history on each disk, as its next generation.</source>
        <translation>Fügt das Ergebnis der Historie auf jeder Disk als nächste Generation an.</translation>
    </message>
    <message>
        <source>Each ticked disk is read in full and compared with the list of files on it. The source is not needed.</source>
        <translation>Jede angekreuzte Disk wird ganz gelesen und mit der Dateiliste auf ihr verglichen. Die Quelle wird nicht gebraucht.</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Disk</source>
        <translation>Disk</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Gelesen</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Urteil</translation>
    </message>
    <message>
        <source>Disks</source>
        <translation>Disks</translation>
    </message>
    <message>
        <source>Add a Folder to Verify</source>
        <translation>Ordner zum Prüfen hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>&amp;Prüfen</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>There is no list of files</source>
        <translation>Keine Dateiliste vorhanden</translation>
    </message>
    <message>
        <source>Not verified</source>
        <translation>Nicht geprüft</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>Vollständig</translation>
    </message>
    <message>
        <source>Not whole</source>
        <translation>Nicht vollständig</translation>
    </message>
</context>
<context>
    <name>orvana::VersionWindow</name>
    <message>
        <source>A new version is available for download at</source>
        <translation>Eine neue Version gibt es hier:</translation>
    </message>
    <message>
        <source>You are running the most current version of</source>
        <translation>Sie benutzen die neueste Version von</translation>
    </message>
    <message>
        <source>Orvana Plurimo</source>
        <translation>Orvana Plurimo</translation>
    </message>
</context>
</TS>
