<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>BaySetupSheet</name>
    <message>
        <source>Set up bays - Orvana Plurimo</source>
        <translation>Configurer les baies - Orvana Plurimo</translation>
    </message>
    <message>
        <source>Name of the &amp;enclosure:</source>
        <translation>Nom du &amp;boîtier :</translation>
    </message>
    <message>
        <source>Name of the enclosure</source>
        <translation>Nom du boîtier</translation>
    </message>
    <message>
        <source>for example: Desk dock</source>
        <translation>par exemple : Dock du bureau</translation>
    </message>
    <message>
        <source>Bay A</source>
        <translation>Baie A</translation>
    </message>
    <message>
        <source>Bay B</source>
        <translation>Baie B</translation>
    </message>
    <message>
        <source>Bay C</source>
        <translation>Baie C</translation>
    </message>
    <message>
        <source>Bay D</source>
        <translation>Baie D</translation>
    </message>
    <message>
        <source>&amp;No such bay</source>
        <translation>&amp;Pas de telle baie</translation>
    </message>
    <message>
        <source>The enclosure does not have the bay that is asked for</source>
        <translation>Le boîtier n’a pas la baie demandée</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>&amp;Terminé</translation>
    </message>
    <message>
        <source>Writes the enclosure</source>
        <translation>Enregistre le boîtier</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>A&amp;nnuler</translation>
    </message>
</context>
<context>
    <name>CopyActionViewController</name>
    <message>
        <source>Options for this run</source>
        <translation>Options de cette duplication</translation>
    </message>
</context>
<context>
    <name>Core</name>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>Unformatted</source>
        <translation>Non formaté</translation>
    </message>
    <message>
        <source>Select an Orvana Storage Device</source>
        <translation>Choisir un appareil de stockage Orvana</translation>
    </message>
    <message>
        <source>Source Disk (Slot-A)</source>
        <translation>Disque source (Slot-A)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-A)</source>
        <translation>Disque de destination (Slot-A)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-B)</source>
        <translation>Disque de destination (Slot-B)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-C)</source>
        <translation>Disque de destination (Slot-C)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-D)</source>
        <translation>Disque de destination (Slot-D)</translation>
    </message>
    <message>
        <source>Duplicating %1</source>
        <translation>Duplication de %1</translation>
    </message>
    <message>
        <source>Verifying File ...</source>
        <translation>Vérification du fichier...</translation>
    </message>
    <message>
        <source>Verifying File ... Failed</source>
        <translation>Vérification du fichier... échec</translation>
    </message>
    <message>
        <source>Verifying File ... Succeeded</source>
        <translation>Vérification du fichier... réussie</translation>
    </message>
    <message>
        <source>Erasing the destination disks. The window answers again when it is done.</source>
        <translation>Effacement des disques de destination. La fenêtre répondra ensuite.</translation>
    </message>
    <message>
        <source>Eject %1</source>
        <translation>Éjection : %1</translation>
    </message>
    <message>
        <source>Mount %1</source>
        <translation>Montage : %1</translation>
    </message>
    <message>
        <source>You must select a Orvana Storage Device first.</source>
        <translation>Choisissez d’abord un appareil de stockage Orvana.</translation>
    </message>
    <message>
        <source>The selected device is no longer there.</source>
        <translation>L’appareil choisi n’est plus là.</translation>
    </message>
    <message>
        <source>Another device has taken the place of the selected one.</source>
        <translation>Un autre appareil a pris la place de celui choisi.</translation>
    </message>
    <message>
        <source>This device cannot be selected when it&apos;s used as a startup disk.</source>
        <translation>Cet appareil ne peut pas être choisi : il sert de disque de démarrage.</translation>
    </message>
    <message>
        <source>Nothing is selected to be copied, so no disk is erased.</source>
        <translation>Rien n’est choisi pour la copie, donc aucun disque n’est effacé.</translation>
    </message>
    <message>
        <source>The source is not there any more, or another disk has taken its place. Nothing was touched. Choose the source again.</source>
        <translation>La source n’est plus là, ou un autre disque a pris sa place. Rien n’a été touché. Choisissez la source à nouveau.</translation>
    </message>
    <message>
        <source>The source is not there any more, or another disk has taken its place. Nothing was copied; the report says which disks were erased. Choose the source again.</source>
        <translation>La source n’est plus là, ou un autre disque a pris sa place. Rien n’a été copié ; le rapport indique les disques effacés. Choisissez la source à nouveau.</translation>
    </message>
    <message>
        <source>A disk of the run before does not answer. Nothing was erased.</source>
        <translation>Un disque de la duplication précédente ne répond pas. Rien n’a été effacé.</translation>
    </message>
    <message>
        <source>The device is not the one that was chosen when the start began. Nothing was touched.</source>
        <translation>L’appareil n’est plus celui choisi au démarrage. Rien n’a été touché.</translation>
    </message>
    <message>
        <source>The disks are not those that were shown any more. Nothing was touched.</source>
        <translation>Les disques ne sont plus ceux affichés. Rien n’a été touché.</translation>
    </message>
    <message>
        <source>it carries the source</source>
        <translation>il porte la source</translation>
    </message>
    <message>
        <source>it cannot be told from a disk of the source</source>
        <translation>il ne se distingue pas d’un disque de la source</translation>
    </message>
    <message>
        <source>it is the start-up disk</source>
        <translation>c’est le disque de démarrage</translation>
    </message>
    <message>
        <source>it belongs to a RAID set</source>
        <translation>il appartient à un ensemble RAID</translation>
    </message>
    <message>
        <source>it has no device node</source>
        <translation>il n’a pas de fichier de périphérique</translation>
    </message>
    <message>
        <source>another disk claims the same place</source>
        <translation>un autre disque revendique la même place</translation>
    </message>
    <message>
        <source>its volume has no name</source>
        <translation>son volume n’a pas de nom</translation>
    </message>
    <message>
        <source>its volume is not mounted</source>
        <translation>son volume n’est pas monté</translation>
    </message>
    <message>
        <source>it is not the disk that was shown</source>
        <translation>ce n’est pas le disque affiché</translation>
    </message>
    <message>
        <source>its erase did not succeed</source>
        <translation>son effacement a échoué</translation>
    </message>
    <message>
        <source>it no longer holds the volume that was shown</source>
        <translation>il ne contient plus le volume affiché</translation>
    </message>
    <message>
        <source>another run is at work on its volume</source>
        <translation>une autre duplication travaille sur son volume</translation>
    </message>
    <message>
        <source>its volume is mounted read-only</source>
        <translation>son volume est monté en lecture seule</translation>
    </message>
    <message>
        <source>the selection does not fit</source>
        <translation>la sélection n’y tient pas</translation>
    </message>
    <message>
        <source>a bay before it shows the same name</source>
        <translation>une baie avant elle porte le même nom</translation>
    </message>
    <message>
        <source>the erase was stopped before it</source>
        <translation>l’effacement a été arrêté avant lui</translation>
    </message>
    <message>
        <source>the disk utility could not be started</source>
        <translation>l’utilitaire de disque n’a pas pu être lancé</translation>
    </message>
    <message>
        <source>a disk needs a name</source>
        <translation>un disque a besoin d’un nom</translation>
    </message>
    <message>
        <source>this cannot be the name of a disk</source>
        <translation>un disque ne peut pas porter ce nom</translation>
    </message>
    <message>
        <source>a name cannot hold &quot;/&quot;</source>
        <translation>un nom ne peut pas contenir « / »</translation>
    </message>
    <message>
        <source>a name is text on one line</source>
        <translation>un nom est un texte sur une ligne</translation>
    </message>
    <message>
        <source>this is the name of the source</source>
        <translation>c’est le nom de la source</translation>
    </message>
    <message>
        <source>a name cannot begin or end with a blank, nor hold two in a row</source>
        <translation>un nom ne peut ni commencer ni finir par une espace, ni en contenir deux de suite</translation>
    </message>
    <message>
        <source>Not ejected:</source>
        <translation>Non éjectés :</translation>
    </message>
    <message>
        <source>Choose the enclosure first, and open the job when no run goes on.</source>
        <translation>Choisissez d’abord le boîtier, et ouvrez la tâche hors duplication.</translation>
    </message>
    <message>
        <source>Nothing is ticked, so there is no job to save.</source>
        <translation>Rien n’est coché : il n’y a pas de tâche à enregistrer.</translation>
    </message>
    <message>
        <source>the job could not be written</source>
        <translation>la tâche n’a pas pu être écrite</translation>
    </message>
    <message>
        <source>the source of the job is not there</source>
        <translation>la source de la tâche n’est pas là</translation>
    </message>
    <message>
        <source>two volumes have the id of the job&apos;s source</source>
        <translation>deux volumes ont l’identifiant de la source de la tâche</translation>
    </message>
    <message>
        <source>another source has the same name; rename one of them</source>
        <translation>une autre source porte le même nom ; renommez-en une</translation>
    </message>
    <message>
        <source>no such file or folder in the source</source>
        <translation>pas de tel fichier ou dossier dans la source</translation>
    </message>
    <message>
        <source>The demo cannot be started.</source>
        <translation>La démo ne peut pas être lancée.</translation>
    </message>
    <message>
        <source>Disks are at work. Bays can be set up when that has ended.</source>
        <translation>Des disques travaillent. Les baies pourront être configurées ensuite.</translation>
    </message>
    <message>
        <source>an enclosure needs two to four bays</source>
        <translation>un boîtier a besoin de deux à quatre baies</translation>
    </message>
    <message>
        <source>an ASC MHL manifest cannot hold sha256 digests</source>
        <translation>un manifeste ASC MHL ne peut pas contenir de sommes sha256</translation>
    </message>
    <message>
        <source>a checksum file cannot hold c4 digests</source>
        <translation>un fichier de sommes ne peut pas contenir de sommes c4</translation>
    </message>
    <message>
        <source>A run that goes on with the last one erases no disk. Switch one of the two off.</source>
        <translation>Une duplication qui reprend la dernière n&apos;efface aucun disque. Désactivez l&apos;une des deux options.</translation>
    </message>
    <message>
        <source>A production line is armed. Disarm it first.</source>
        <translation>Une chaîne de production est armée. Désarmez-la d’abord.</translation>
    </message>
    <message>
        <source>it was in the bay already</source>
        <translation>il était déjà dans la baie</translation>
    </message>
    <message>
        <source>its countdown was stopped</source>
        <translation>son compte à rebours a été arrêté</translation>
    </message>
    <message>
        <source>it has no serial number</source>
        <translation>il n’a pas de numéro de série</translation>
    </message>
    <message>
        <source>a disk with its serial number is in another bay</source>
        <translation>un disque portant son numéro de série est dans une autre baie</translation>
    </message>
    <message>
        <source>as many disks as are wanted are done or in work</source>
        <translation>autant de disques que voulu sont faits ou en cours</translation>
    </message>
    <message>
        <source>the line is paused</source>
        <translation>la ligne est en pause</translation>
    </message>
    <message>
        <source>the line has ended</source>
        <translation>la ligne est terminée</translation>
    </message>
    <message>
        <source>no more disks were wanted for now</source>
        <translation>plus aucun disque n’était voulu pour l’instant</translation>
    </message>
    <message>
        <source>a line counts only disks that were verified; the job does not verify</source>
        <translation>une ligne ne compte que les disques vérifiés ; la tâche ne vérifie pas</translation>
    </message>
    <message>
        <source>a line begins each disk anew; the job goes on with the last run</source>
        <translation>une ligne recommence chaque disque ; la tâche continue la dernière duplication</translation>
    </message>
    <message>
        <source>the names of disks in two bays would be the same; put {n} or {bay} into the pattern</source>
        <translation>les noms des disques de deux baies seraient les mêmes ; mettez {n} ou {bay} dans le modèle</translation>
    </message>
    <message>
        <source>it calls itself failing</source>
        <translation>il se déclare défaillant</translation>
    </message>
    <message>
        <source>good</source>
        <translation>bon</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>avertissement</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>inconnu</translation>
    </message>
    <message>
        <source>calls itself failing</source>
        <translation>se déclare défaillant</translation>
    </message>
    <message>
        <source>1 bad sector</source>
        <translation>1 secteur défectueux</translation>
    </message>
    <message>
        <source>%1 bad sectors</source>
        <translation>%1 secteurs défectueux</translation>
    </message>
    <message>
        <source>%1 of them new</source>
        <translation>dont %1 nouveaux</translation>
    </message>
    <message>
        <source>1 new error</source>
        <translation>1 nouvelle erreur</translation>
    </message>
    <message>
        <source>%1 new errors</source>
        <translation>%1 nouvelles erreurs</translation>
    </message>
    <message>
        <source>hot</source>
        <translation>chaud</translation>
    </message>
    <message>
        <source>its temperature is out of its own limits</source>
        <translation>sa température est hors de ses propres limites</translation>
    </message>
    <message>
        <source>the link is down to 1.5 Gbps</source>
        <translation>la liaison est réduite à 1.5 Gbps</translation>
    </message>
    <message>
        <source>1 value at its limit</source>
        <translation>1 valeur à sa limite</translation>
    </message>
    <message>
        <source>%1 values at its limit</source>
        <translation>%1 valeurs à leur limite</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 heure</translation>
    </message>
    <message>
        <source>%1 hours</source>
        <translation>%1 heures</translation>
    </message>
</context>
<context>
    <name>DiskInfoViewController</name>
    <message>
        <source>So&amp;urce</source>
        <translation>So&amp;urce</translation>
    </message>
    <message>
        <source>Source disk</source>
        <translation>Disque source</translation>
    </message>
    <message>
        <source>Volume name of source</source>
        <translation>Nom de volume de la source</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modèle</translation>
    </message>
    <message>
        <source>Model of source</source>
        <translation>Modèle de la source</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>N° série</translation>
    </message>
    <message>
        <source>Serial number of source</source>
        <translation>Numéro de série de la source</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Libre</translation>
    </message>
    <message>
        <source>Free space of source</source>
        <translation>Espace libre de la source</translation>
    </message>
    <message>
        <source>Capacity</source>
        <translation>Capacité</translation>
    </message>
    <message>
        <source>Capacity of source</source>
        <translation>Capacité de la source</translation>
    </message>
    <message>
        <source>Slot-A</source>
        <translation>Slot-A</translation>
    </message>
    <message>
        <source>Volume name of bay A</source>
        <translation>Nom de volume de la baie A</translation>
    </message>
    <message>
        <source>Model of bay A</source>
        <translation>Modèle de la baie A</translation>
    </message>
    <message>
        <source>Serial number of bay A</source>
        <translation>Numéro de série de la baie A</translation>
    </message>
    <message>
        <source>Free space of bay A</source>
        <translation>Espace libre de la baie A</translation>
    </message>
    <message>
        <source>Capacity of bay A</source>
        <translation>Capacité de la baie A</translation>
    </message>
    <message>
        <source>Does not fit</source>
        <translation>Trop petit</translation>
    </message>
    <message>
        <source>Warning for bay A</source>
        <translation>Avertissement pour la baie A</translation>
    </message>
    <message>
        <source>RAID</source>
        <translation>RAID</translation>
    </message>
    <message>
        <source>RAID marker of bay A</source>
        <translation>Indication RAID de la baie A</translation>
    </message>
    <message>
        <source>Slot-B</source>
        <translation>Slot-B</translation>
    </message>
    <message>
        <source>Volume name of bay B</source>
        <translation>Nom de volume de la baie B</translation>
    </message>
    <message>
        <source>Model of bay B</source>
        <translation>Modèle de la baie B</translation>
    </message>
    <message>
        <source>Serial number of bay B</source>
        <translation>Numéro de série de la baie B</translation>
    </message>
    <message>
        <source>Free space of bay B</source>
        <translation>Espace libre de la baie B</translation>
    </message>
    <message>
        <source>Capacity of bay B</source>
        <translation>Capacité de la baie B</translation>
    </message>
    <message>
        <source>Warning for bay B</source>
        <translation>Avertissement pour la baie B</translation>
    </message>
    <message>
        <source>RAID marker of bay B</source>
        <translation>Indication RAID de la baie B</translation>
    </message>
    <message>
        <source>Slot-C</source>
        <translation>Slot-C</translation>
    </message>
    <message>
        <source>Volume name of bay C</source>
        <translation>Nom de volume de la baie C</translation>
    </message>
    <message>
        <source>Model of bay C</source>
        <translation>Modèle de la baie C</translation>
    </message>
    <message>
        <source>Serial number of bay C</source>
        <translation>Numéro de série de la baie C</translation>
    </message>
    <message>
        <source>Free space of bay C</source>
        <translation>Espace libre de la baie C</translation>
    </message>
    <message>
        <source>Capacity of bay C</source>
        <translation>Capacité de la baie C</translation>
    </message>
    <message>
        <source>Warning for bay C</source>
        <translation>Avertissement pour la baie C</translation>
    </message>
    <message>
        <source>RAID marker of bay C</source>
        <translation>Indication RAID de la baie C</translation>
    </message>
    <message>
        <source>Slot-D</source>
        <translation>Slot-D</translation>
    </message>
    <message>
        <source>Volume name of bay D</source>
        <translation>Nom de volume de la baie D</translation>
    </message>
    <message>
        <source>Model of bay D</source>
        <translation>Modèle de la baie D</translation>
    </message>
    <message>
        <source>Serial number of bay D</source>
        <translation>Numéro de série de la baie D</translation>
    </message>
    <message>
        <source>Free space of bay D</source>
        <translation>Espace libre de la baie D</translation>
    </message>
    <message>
        <source>Capacity of bay D</source>
        <translation>Capacité de la baie D</translation>
    </message>
    <message>
        <source>Warning for bay D</source>
        <translation>Avertissement pour la baie D</translation>
    </message>
    <message>
        <source>RAID marker of bay D</source>
        <translation>Indication RAID de la baie D</translation>
    </message>
    <message>
        <source>E&amp;ject</source>
        <translation>É&amp;jecter</translation>
    </message>
    <message>
        <source>Eject source disk</source>
        <translation>Éjecter le disque source</translation>
    </message>
    <message>
        <source>Eject the source disk</source>
        <translation>Éjecte le disque source</translation>
    </message>
    <message>
        <source>Destinations</source>
        <translation>Destinations</translation>
    </message>
    <message>
        <source>Eject A&amp;ll</source>
        <translation>&amp;Tout éjecter</translation>
    </message>
    <message>
        <source>Eject destination disks</source>
        <translation>Éjecter les disques de destination</translation>
    </message>
    <message>
        <source>Eject all destination disks</source>
        <translation>Éjecte tous les disques de destination</translation>
    </message>
</context>
<context>
    <name>FileListViewController</name>
    <message>
        <source>Files and folders to duplicate</source>
        <translation>Fichiers et dossiers à dupliquer</translation>
    </message>
    <message>
        <source>Ticked files</source>
        <translation>Fichiers cochés</translation>
    </message>
</context>
<context>
    <name>LogDataWindows</name>
    <message>
        <source>Run Logs</source>
        <translation>Journaux</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ouvrir le dossier</translation>
    </message>
    <message>
        <source>Opens the folder of the logs in the file manager</source>
        <translation>Ouvre le dossier des journaux dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Actualiser</translation>
    </message>
    <message>
        <source>Reads the folder of the logs again</source>
        <translation>Relit le dossier des journaux</translation>
    </message>
    <message>
        <source>Logs</source>
        <translation>Journaux</translation>
    </message>
    <message>
        <source>The newest log comes first. Backspace or Delete removes the selected one.</source>
        <translation>Le journal le plus récent vient en premier. Retour arrière ou Suppr efface celui qui est sélectionné.</translation>
    </message>
    <message>
        <source>Find in the log</source>
        <translation>Chercher dans le journal</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>Chercher le précédent</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>Chercher le suivant</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Introuvable</translation>
    </message>
    <message>
        <source>Text of the log</source>
        <translation>Texte du journal</translation>
    </message>
    <message>
        <source>Delete All Logs</source>
        <translation>Supprimer tous les journaux</translation>
    </message>
    <message>
        <source>Removes every log in the list and its report at once, without asking.</source>
        <translation>Supprime aussitôt chaque journal de la liste et son rapport, sans demander.</translation>
    </message>
    <message>
        <source>Removes every log in the list and its report at once, without asking</source>
        <translation>Supprime aussitôt chaque journal de la liste et son rapport, sans demander</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
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
        <translation>Message de progression</translation>
    </message>
    <message>
        <source>Stage of the run</source>
        <translation>Étape de la duplication</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Tout</translation>
    </message>
    <message>
        <source>This file</source>
        <translation>Ce fichier</translation>
    </message>
    <message>
        <source>The whole run</source>
        <translation>Toute la duplication</translation>
    </message>
    <message>
        <source>The current file</source>
        <translation>Le fichier en cours</translation>
    </message>
    <message>
        <source>Progress of the whole run</source>
        <translation>Progression de toute la duplication</translation>
    </message>
    <message>
        <source>Progress of the current file</source>
        <translation>Progression du fichier en cours</translation>
    </message>
    <message>
        <source>?</source>
        <translation>?</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>How to use Orvana Plurimo</source>
        <translation>Comment utiliser Orvana Plurimo</translation>
    </message>
</context>
<context>
    <name>NoEnclosureView</name>
    <message>
        <source>No enclosure was found.</source>
        <translation>Aucun boîtier n’a été trouvé.</translation>
    </message>
    <message>
        <source>Set up &amp;bays...</source>
        <translation>Configurer les &amp;baies...</translation>
    </message>
    <message>
        <source>Says which ports of a dock or a case are the bays of an enclosure</source>
        <translation>Indique quels ports d’un dock sont les baies d’un boîtier</translation>
    </message>
    <message>
        <source>&amp;Try the demo</source>
        <translation>Essa&amp;yer la démo</translation>
    </message>
    <message>
        <source>Opens a second window on a machine that is simulated</source>
        <translation>Ouvre une seconde fenêtre sur une machine simulée</translation>
    </message>
</context>
<context>
    <name>Obsidio</name>
    <message>
        <source>Orvana Plurimo for Obsidio</source>
        <translation>Orvana Plurimo pour Obsidio</translation>
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
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>ProgressBarViewController</name>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Progress of the whole run</source>
        <translation>Progression de toute la duplication</translation>
    </message>
    <message>
        <source>Progress of the current file</source>
        <translation>Progression du fichier en cours</translation>
    </message>
</context>
<context>
    <name>RunReportWindow</name>
    <message>
        <source>Run Report - Orvana Plurimo</source>
        <translation>Rapport - Orvana Plurimo</translation>
    </message>
    <message>
        <source>What each destination got</source>
        <translation>Ce que chaque destination a reçu</translation>
    </message>
    <message>
        <source>Files that failed or differ</source>
        <translation>Fichiers en échec ou différents</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Enregistrer</translation>
    </message>
    <message>
        <source>Save the report file (JSON)</source>
        <translation>Enregistre le fichier du rapport (JSON)</translation>
    </message>
    <message>
        <source>Save as &amp;PDF</source>
        <translation>Enregistrer en &amp;PDF</translation>
    </message>
    <message>
        <source>Save a certificate for each disk as PDF</source>
        <translation>Enregistre un certificat par disque en PDF</translation>
    </message>
    <message>
        <source>Save as &amp;HTML</source>
        <translation>Enregistrer en &amp;HTML</translation>
    </message>
    <message>
        <source>Save a certificate for each disk as HTML</source>
        <translation>Enregistre un certificat par disque en HTML</translation>
    </message>
    <message>
        <source>Open &amp;log</source>
        <translation>Ouvrir le &amp;journal</translation>
    </message>
    <message>
        <source>Clos&amp;e</source>
        <translation>&amp;Fermer</translation>
    </message>
</context>
<context>
    <name>TBDeviceViewController</name>
    <message>
        <source>&amp;Not used...</source>
        <translation>&amp;Inutilisés...</translation>
    </message>
    <message>
        <source>Says why devices that are attached cannot be used</source>
        <translation>Indique pourquoi des appareils branchés ne peuvent pas servir</translation>
    </message>
    <message>
        <source>Orvana storage device</source>
        <translation>Appareil de stockage Orvana</translation>
    </message>
</context>
<context>
    <name>VersionWindow</name>
    <message>
        <source>Check for Updates</source>
        <translation>Rechercher des mises à jour</translation>
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
        <translation>Duplication de la %1</translation>
    </message>
    <message>
        <source>State of %1</source>
        <translation>État de la %1</translation>
    </message>
    <message>
        <source>Progress of %1</source>
        <translation>Progression de la %1</translation>
    </message>
    <message>
        <source>Rate of %1</source>
        <translation>Débit de la %1</translation>
    </message>
    <message>
        <source>Time left for %1</source>
        <translation>Temps restant pour la %1</translation>
    </message>
</context>
<context>
    <name>orvana::BaySetupSheet</name>
    <message>
        <source>no such bay</source>
        <translation>pas de telle baie</translation>
    </message>
    <message>
        <source>Put a disk into bay %1. If one is there already, take it out and put it in again.</source>
        <translation>Mettez un disque dans la baie %1. S’il y en a déjà un, retirez-le et remettez-le.</translation>
    </message>
    <message>
        <source>All bays have been asked for. Press Cancel and begin again.</source>
        <translation>Toutes les baies ont été demandées. Appuyez sur Annuler et recommencez.</translation>
    </message>
    <message>
        <source>All bays have been asked for.</source>
        <translation>Toutes les baies ont été demandées.</translation>
    </message>
    <message>
        <source>Type a name for the enclosure.</source>
        <translation>Saisissez un nom pour le boîtier.</translation>
    </message>
    <message>
        <source>Waiting for the permission to write it ...</source>
        <translation>En attente de l’autorisation d’écrire...</translation>
    </message>
    <message>
        <source>Done writes an enclosure with %1 bays.</source>
        <translation>« Terminé » enregistre un boîtier de %1 baies.</translation>
    </message>
    <message>
        <source>waiting for a disk</source>
        <translation>attend un disque</translation>
    </message>
</context>
<context>
    <name>orvana::CopyActionViewController</name>
    <message>
        <source>&amp;Erase destination disk(s)</source>
        <translation>&amp;Effacer les disques de destination</translation>
    </message>
    <message>
        <source>Erase destination disk(s)</source>
        <translation>Effacer les disques de destination</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>&amp;Vérifier</translation>
    </message>
    <message>
        <source>Verify</source>
        <translation>Vérifier</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Démarrer</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>A&amp;nnuler</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Démarrer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>orvana::DiskInfoViewController</name>
    <message>
        <source>bay %1</source>
        <translation>baie %1</translation>
    </message>
    <message>
        <source>(no name)</source>
        <translation>(sans nom)</translation>
    </message>
</context>
<context>
    <name>orvana::FileListViewController</name>
    <message>
        <source>%1 File(s)     Size : %2</source>
        <translation>%1 fichier(s)     Taille : %2</translation>
    </message>
</context>
<context>
    <name>orvana::LineTile</name>
    <message>
        <source>Not armed</source>
        <translation>Non armée</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>En attente</translation>
    </message>
    <message>
        <source>Looking</source>
        <translation>Examen</translation>
    </message>
    <message>
        <source>Not taken</source>
        <translation>Non pris</translation>
    </message>
    <message>
        <source>Asking</source>
        <translation>Demande</translation>
    </message>
    <message>
        <source>Begins in</source>
        <translation>Commence dans</translation>
    </message>
    <message>
        <source>Erasing</source>
        <translation>Effacement</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>Copie</translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation>Vérification</translation>
    </message>
    <message>
        <source>Ejecting</source>
        <translation>Éjection</translation>
    </message>
    <message>
        <source>Passed</source>
        <translation>Réussi</translation>
    </message>
    <message>
        <source>Not proven</source>
        <translation>Non prouvé</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Échec</translation>
    </message>
    <message>
        <source>Yes, write this disk</source>
        <translation>Oui, écrire ce disque</translation>
    </message>
    <message>
        <source>State of bay %1</source>
        <translation>État de la baie %1</translation>
    </message>
    <message>
        <source>Progress of bay %1</source>
        <translation>Progression de la baie %1</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Source</translation>
    </message>
</context>
<context>
    <name>orvana::LineWindow</name>
    <message>
        <source>Production Line</source>
        <translation>Chaîne de production</translation>
    </message>
    <message>
        <source>Each disk that comes into an armed bay gets this, and is verified: %1, files: %2, %3</source>
        <translation>Chaque disque qui arrive dans une baie armée reçoit ceci et est vérifié : %1, fichiers : %2, %3</translation>
    </message>
    <message>
        <source>&amp;Line:</source>
        <translation>&amp;Ligne :</translation>
    </message>
    <message>
        <source>&amp;Title:</source>
        <translation>&amp;Titre :</translation>
    </message>
    <message>
        <source>&amp;Number of disks:</source>
        <translation>&amp;Nombre de disques :</translation>
    </message>
    <message>
        <source>May hold {n:03} for the number, {serial}, {bay} and {date}</source>
        <translation>Peut contenir {n:03} pour le numéro, {serial}, {bay} et {date}</translation>
    </message>
    <message>
        <source>N&amp;ames of the disks:</source>
        <translation>N&amp;oms des disques :</translation>
    </message>
    <message>
        <source>Bay &amp;%1</source>
        <translation>Baie &amp;%1</translation>
    </message>
    <message>
        <source>Armed bays:</source>
        <translation>Baies armées :</translation>
    </message>
    <message>
        <source>A&amp;rm</source>
        <translation>A&amp;rmer</translation>
    </message>
    <message>
        <source>Disks made</source>
        <translation>Disques faits</translation>
    </message>
    <message>
        <source>No &amp;more disks</source>
        <translation>P&amp;lus de disques</translation>
    </message>
    <message>
        <source>New line</source>
        <translation>Nouvelle ligne</translation>
    </message>
    <message>
        <source>Disks are still in work.</source>
        <translation>Des disques sont encore en cours.</translation>
    </message>
    <message>
        <source>The words are &quot;%1&quot;.</source>
        <translation>Les mots sont « %1 ».</translation>
    </message>
    <message>
        <source>No bay is ticked.</source>
        <translation>Aucune baie n’est cochée.</translation>
    </message>
    <message>
        <source>Any key, and any click beside a button, stops a countdown.</source>
        <translation>Toute touche, ou tout clic hors d’un bouton, arrête un compte à rebours.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>&amp;Go on</source>
        <translation>&amp;Continuer</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Pause</translation>
    </message>
    <message>
        <source>No more disks are taken: %1</source>
        <translation>Plus aucun disque n’est pris : %1</translation>
    </message>
    <message>
        <source>The window closes when the disks in work are done.</source>
        <translation>La fenêtre se fermera quand les disques en cours seront terminés.</translation>
    </message>
    <message>
        <source>To be as&amp;ked about no disk&apos;s content, type &quot;%1&quot;:</source>
        <translation>Pour qu’aucun contenu de dis&amp;que ne soit demandé, tapez « %1 » :</translation>
    </message>
</context>
<context>
    <name>orvana::LogDataWindows</name>
    <message>
        <source>This log is long. Only its end is shown, at most the last 10 MB.</source>
        <translation>Ce journal est long. Seule sa fin est affichée, au plus les 10 derniers Mo.</translation>
    </message>
</context>
<context>
    <name>orvana::MainMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Rescan</source>
        <translation>&amp;Analyser à nouveau</translation>
    </message>
    <message>
        <source>&amp;Logs</source>
        <translation>&amp;Journaux</translation>
    </message>
    <message>
        <source>&amp;Open job...</source>
        <translation>&amp;Ouvrir une tâche...</translation>
    </message>
    <message>
        <source>&amp;Save job...</source>
        <translation>&amp;Enregistrer la tâche...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>Du&amp;plication</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Démarrer</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>&amp;Vérifier</translation>
    </message>
    <message>
        <source>&amp;Erase Destination Disks</source>
        <translation>&amp;Effacer les disques de destination</translation>
    </message>
    <message>
        <source>&amp;Options for this run...</source>
        <translation>&amp;Options de cette duplication...</translation>
    </message>
    <message>
        <source>E&amp;ject Source</source>
        <translation>É&amp;jecter la source</translation>
    </message>
    <message>
        <source>Eject &amp;Destinations</source>
        <translation>Éjecter les dest&amp;inations</translation>
    </message>
    <message>
        <source>&amp;Mount disks</source>
        <translation>&amp;Monter les disques</translation>
    </message>
    <message>
        <source>Set up &amp;bays...</source>
        <translation>Configurer les &amp;baies...</translation>
    </message>
    <message>
        <source>&amp;Last Report</source>
        <translation>De&amp;rnier rapport</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>&amp;How to Use</source>
        <translation>&amp;Mode d’emploi</translation>
    </message>
    <message>
        <source>&amp;Check for Updates</source>
        <translation>&amp;Rechercher des mises à jour</translation>
    </message>
    <message>
        <source>&amp;About Orvana Plurimo</source>
        <translation>À &amp;propos d’Orvana Plurimo</translation>
    </message>
    <message>
        <source>Verify dis&amp;ks...</source>
        <translation>Vérifier les dis&amp;ques...</translation>
    </message>
    <message>
        <source>&amp;Go on with the last run</source>
        <translation>Re&amp;prendre la dernière duplication</translation>
    </message>
    <message>
        <source>&amp;Production line...</source>
        <translation>C&amp;haîne de production...</translation>
    </message>
</context>
<context>
    <name>orvana::MainWindow</name>
    <message>
        <source>Orvana Plurimo, the disk duplicator</source>
        <translation>Orvana Plurimo, le duplicateur de disques</translation>
    </message>
    <message>
        <source>Version : %1</source>
        <translation>Version : %1</translation>
    </message>
    <message>
        <source>for Obsidio</source>
        <translation>pour Obsidio</translation>
    </message>
    <message>
        <source>Not used</source>
        <translation>Inutilisés</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Ejected</source>
        <translation>Éjecté</translation>
    </message>
    <message>
        <source>These disks can be taken out: %1</source>
        <translation>Ces disques peuvent être retirés : %1</translation>
    </message>
    <message>
        <source>Nothing to mount</source>
        <translation>Rien à monter</translation>
    </message>
    <message>
        <source>No disk in a bay has a volume that is not mounted.</source>
        <translation>Aucun disque d’une baie n’a de volume à monter.</translation>
    </message>
    <message>
        <source>%1, serial number %2, was not mounted: %3</source>
        <translation>%1, numéro de série %2, n’a pas été monté : %3</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>Save Job</source>
        <translation>Enregistrer la tâche</translation>
    </message>
    <message>
        <source>Open Job</source>
        <translation>Ouvrir une tâche</translation>
    </message>
    <message>
        <source>Jobs (*.plurimo)</source>
        <translation>Tâches (*.plurimo)</translation>
    </message>
    <message>
        <source>Open log</source>
        <translation>Ouvrir le journal</translation>
    </message>
    <message>
        <source>Disks are being duplicated. If you quit now, the copies are not complete.</source>
        <translation>Une duplication est en cours. Si vous quittez maintenant, les copies ne seront pas complètes.</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Go On</source>
        <translation>Continuer</translation>
    </message>
    <message>
        <source>Infomation</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>You must select a Orvana Storage Device first.</source>
        <translation>Choisissez d’abord un appareil de stockage Orvana.</translation>
    </message>
    <message>
        <source>File Copy Completed</source>
        <translation>Copie terminée</translation>
    </message>
    <message>
        <source>All files have been copied successfully.</source>
        <translation>Tous les fichiers ont été copiés avec succès.</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Duplication finished</source>
        <translation>Duplication terminée</translation>
    </message>
    <message>
        <source>The device was removed while files were being duplicated to it. The run has ended; its copies are not complete.</source>
        <translation>L’appareil a été retiré pendant la duplication. Celle-ci a pris fin ; ses copies ne sont pas complètes.</translation>
    </message>
    <message>
        <source>Duplication ended</source>
        <translation>Duplication interrompue</translation>
    </message>
    <message>
        <source>The device was removed. The copies are not complete.</source>
        <translation>L’appareil a été retiré. Les copies ne sont pas complètes.</translation>
    </message>
    <message>
        <source>Nothing was duplicated</source>
        <translation>Rien n’a été dupliqué</translation>
    </message>
    <message>
        <source>There was nothing to copy, or no disk to copy to.</source>
        <translation>Il n’y avait rien à copier, ou aucun disque de destination.</translation>
    </message>
    <message>
        <source>Waiting for bay %1: %2</source>
        <translation>Attend la baie %1 : %2</translation>
    </message>
    <message>
        <source>Erased</source>
        <translation>Effacé</translation>
    </message>
    <message>
        <source>Not erased</source>
        <translation>Non effacé</translation>
    </message>
    <message>
        <source>Erasing...</source>
        <translation>Effacement...</translation>
    </message>
    <message>
        <source>To be erased</source>
        <translation>À effacer</translation>
    </message>
    <message>
        <source>Erasing disk %1 of %2: bay %3</source>
        <translation>Effacement du disque %1 sur %2 : baie %3</translation>
    </message>
    <message>
        <source>No part</source>
        <translation>Exclu</translation>
    </message>
    <message>
        <source>This device cannot be selected when it&apos;s used as a startup disk.</source>
        <translation>Cet appareil ne peut pas être choisi : il sert de disque de démarrage.</translation>
    </message>
    <message>
        <source>This device cannot be selected, because it includes a RAID set.</source>
        <translation>Cet appareil ne peut pas être choisi, car il contient un ensemble RAID.</translation>
    </message>
    <message>
        <source>The selected files are still being counted. The duplication goes on when that is done.</source>
        <translation>Les fichiers choisis sont en cours de comptage. La duplication continuera ensuite.</translation>
    </message>
    <message>
        <source>Insufficient Disk Space</source>
        <translation>Espace disque insuffisant</translation>
    </message>
    <message>
        <source>There is insufficient free disk space on the destination drive(s).</source>
        <translation>L’espace libre des disques de destination est insuffisant.</translation>
    </message>
    <message>
        <source>There is insufficient free disk space on the destination drive(s)</source>
        <translation>L’espace libre est insuffisant sur ces disques de destination :</translation>
    </message>
    <message>
        <source>

Press OK to continue duplicating to the remaining drive(s).</source>
        <translation>

Appuyez sur OK pour dupliquer sur les autres disques.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>The destination disks are being looked at.</source>
        <translation>Les disques de destination sont en cours d’examen.</translation>
    </message>
    <message>
        <source>These disks will lose everything they hold:</source>
        <translation>Ces disques perdront tout leur contenu :</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Effacer</translation>
    </message>
    <message>
        <source>One moment</source>
        <translation>Un instant</translation>
    </message>
    <message>
        <source>What it has brought to these disks need not be copied again:</source>
        <translation>Ce qu&apos;elle a mis sur ces disques n&apos;a pas besoin d&apos;être copié à nouveau :</translation>
    </message>
    <message>
        <source>The last run was broken off</source>
        <translation>La dernière duplication a été interrompue</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>Reprendre</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Pas maintenant</translation>
    </message>
</context>
<context>
    <name>orvana::Obsidio</name>
    <message>
        <source>Copyright © 2026 The Orvana Plurimo developers</source>
        <translation>Copyright © 2026 Les développeurs d’Orvana Plurimo</translation>
    </message>
    <message>
        <source>Version : %1</source>
        <translation>Version : %1</translation>
    </message>
</context>
<context>
    <name>orvana::OrvanaAppDelegate</name>
    <message>
        <source>About Orvana Plurimo</source>
        <translation>À propos d’Orvana Plurimo</translation>
    </message>
    <message>
        <source>Orvana Plurimo %1</source>
        <translation>Orvana Plurimo %1</translation>
    </message>
    <message>
        <source>Duplicates disks: one read, many writes, verified.</source>
        <translation>Duplique des disques : une lecture, plusieurs écritures, vérifiées.</translation>
    </message>
    <message>
        <source>The selected files are still being counted.</source>
        <translation>Les fichiers sélectionnés sont encore en cours de comptage.</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
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
        <translation>Options de cette duplication</translation>
    </message>
    <message>
        <source>The next run does this as well:</source>
        <translation>La prochaine duplication fera aussi :</translation>
    </message>
</context>
<context>
    <name>orvana::RunReportWindow</name>
    <message>
        <source>Save Report</source>
        <translation>Enregistrer le rapport</translation>
    </message>
    <message>
        <source>Save Certificates as PDF</source>
        <translation>Enregistrer les certificats en PDF</translation>
    </message>
    <message>
        <source>Save Certificates as HTML</source>
        <translation>Enregistrer les certificats en HTML</translation>
    </message>
    <message>
        <source>Saved to %1.</source>
        <translation>Enregistré dans %1.</translation>
    </message>
    <message>
        <source>The report could not be written to %1.</source>
        <translation>Le rapport n’a pas pu être écrit dans %1.</translation>
    </message>
</context>
<context>
    <name>orvana::RunWords</name>
    <message>
        <source>Copying</source>
        <translation>Copie</translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation>Vérification</translation>
    </message>
    <message>
        <source>Copying and verifying</source>
        <translation>Copie et vérification</translation>
    </message>
    <message>
        <source>Writing out</source>
        <translation>Écriture finale</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>reste %1</translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n échec</numerusform>
            <numerusform>%n échecs</numerusform>
        </translation>
    </message>
    <message>
        <source>Verified</source>
        <translation>Vérifié</translation>
    </message>
    <message>
        <source>Complete</source>
        <translation>Complet</translation>
    </message>
    <message>
        <source>Not complete</source>
        <translation>Incomplet</translation>
    </message>
    <message>
        <source>Differs</source>
        <translation>Différent</translation>
    </message>
    <message>
        <source>Not compared</source>
        <translation>Non comparé</translation>
    </message>
    <message>
        <source>Not certain</source>
        <translation>Incertain</translation>
    </message>
    <message>
        <source>Not finished</source>
        <translation>Inachevé</translation>
    </message>
    <message>
        <source>from the disk</source>
        <translation>lu du disque</translation>
    </message>
    <message>
        <source>in memory only</source>
        <translation>en mémoire seulement</translation>
    </message>
    <message>
        <source>not verified</source>
        <translation>non vérifié</translation>
    </message>
    <message>
        <source>not all verified</source>
        <translation>pas tout vérifié</translation>
    </message>
    <message>
        <source>read from memory</source>
        <translation>lu de la mémoire</translation>
    </message>
    <message numerus="yes">
        <source>%n differ</source>
        <translation>
            <numerusform>%n diffère</numerusform>
            <numerusform>%n diffèrent</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not compared</source>
        <translation>
            <numerusform>%n non comparé</numerusform>
            <numerusform>%n non comparés</numerusform>
        </translation>
    </message>
    <message>
        <source>not known to be on disk</source>
        <translation>présence sur disque inconnue</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>rien</translation>
    </message>
    <message>
        <source>%1, and something that is not mounted</source>
        <translation>%1, et quelque chose qui n’est pas monté</translation>
    </message>
    <message>
        <source>something that is not mounted, or cannot be read</source>
        <translation>quelque chose qui n’est pas monté, ou illisible</translation>
    </message>
    <message>
        <source>at least 1 file</source>
        <translation>au moins 1 fichier</translation>
    </message>
    <message numerus="yes">
        <source>at least %n files</source>
        <translation>
            <numerusform>au moins %n fichier</numerusform>
            <numerusform>au moins %n fichiers</numerusform>
        </translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1 fichier</translation>
    </message>
    <message numerus="yes">
        <source>%n files</source>
        <translation>
            <numerusform>%n fichier</numerusform>
            <numerusform>%n fichiers</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 dans %2</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>inconnu</translation>
    </message>
    <message>
        <source>%1: %2, serial number %3, holds %4, will be %5</source>
        <translation>%1 : %2, numéro de série %3, contient %4, deviendra %5</translation>
    </message>
    <message>
        <source>%1: %2, serial number %3, now %4, holds %5, will be %6</source>
        <translation>%1 : %2, numéro de série %3, actuellement %4, contient %5, deviendra %6</translation>
    </message>
    <message>
        <source>Eject each disk that holds every file at the end</source>
        <translation>Éjecter à la fin chaque disque qui a tous les fichiers</translation>
    </message>
    <message>
        <source>Eject at the end</source>
        <translation>Éjecter à la fin</translation>
    </message>
    <message>
        <source>&amp;Manifest on each copy:</source>
        <translation>&amp;Manifeste sur chaque copie :</translation>
    </message>
    <message>
        <source>&amp;Digest of each file:</source>
        <translation>&amp;Somme de chaque fichier :</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>ASC MHL history</source>
        <translation>Historique ASC MHL</translation>
    </message>
    <message>
        <source>Checksum file</source>
        <translation>Fichier de sommes</translation>
    </message>
    <message>
        <source>Go on with the last run: what it has brought to the disks is not copied again</source>
        <translation>Reprendre la dernière duplication : ce qu&apos;elle a mis sur les disques n&apos;est pas copié à nouveau</translation>
    </message>
    <message>
        <source>Compare what is there already with the source, and write only the blocks that differ</source>
        <translation>Comparer l&apos;existant avec la source et n&apos;écrire que les blocs qui diffèrent</translation>
    </message>
    <message>
        <source>Cut longer files that are there already to the length of their source</source>
        <translation>Raccourcir les fichiers existants plus longs à la longueur de leur source</translation>
    </message>
    <message>
        <source>When verifying, write blocks that differ once more</source>
        <translation>Lors de la vérification, réécrire les blocs qui diffèrent</translation>
    </message>
    <message>
        <source>Go on with the last run</source>
        <translation>Reprendre la dernière duplication</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Mettre à jour</translation>
    </message>
    <message>
        <source>Exact lengths</source>
        <translation>Longueurs exactes</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Réparer</translation>
    </message>
    <message>
        <source>&amp;Keep of the source:</source>
        <translation>&amp;Conserver de la source :</translation>
    </message>
    <message>
        <source>Content alone</source>
        <translation>Le contenu seul</translation>
    </message>
    <message>
        <source>Dates</source>
        <translation>Dates</translation>
    </message>
    <message>
        <source>All it has</source>
        <translation>Tout</translation>
    </message>
    <message>
        <source>Copy nothing</source>
        <translation>Ne rien copier</translation>
    </message>
    <message>
        <source>Leave that disk out</source>
        <translation>Écarter ce disque</translation>
    </message>
    <message>
        <source>Copy what can be copied</source>
        <translation>Copier ce qui peut l&apos;être</translation>
    </message>
    <message>
        <source>Do not look beforehand</source>
        <translation>Ne pas regarder avant</translation>
    </message>
    <message>
        <source>&amp;Where a disk cannot hold all:</source>
        <translation>Là où un disque ne peut tout conteni&amp;r :</translation>
    </message>
    <message>
        <source>Ask each disk how it is, and leave out one that calls itself failing</source>
        <translation>Demander à chaque disque son état et écarter celui qui se déclare défaillant</translation>
    </message>
    <message>
        <source>Health</source>
        <translation>État</translation>
    </message>
</context>
<context>
    <name>orvana::TBDeviceViewController</name>
    <message>
        <source>&amp;Orvana Storage Device :</source>
        <translation>Appareil de stockage &amp;Orvana :</translation>
    </message>
    <message>
        <source>&amp;Orvana Storage Device (%1) :</source>
        <translation>Appareil de stockage &amp;Orvana (%1) :</translation>
    </message>
</context>
<context>
    <name>orvana::VerifyWindow</name>
    <message>
        <source>&amp;Record the result on the disks</source>
        <translation>Enregist&amp;rer le résultat sur les disques</translation>
    </message>
    <message>
        <source>&amp;Add folder...</source>
        <translation>&amp;Ajouter un dossier...</translation>
    </message>
    <message>
        <source>Verify Disks</source>
        <translation>Vérifier les disques</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>Ce qui a été trouvé</translation>
    </message>
    <message>
        <source>Appends the result to the history on each disk, as its next generation.</source>
        <translation>Ajoute le résultat à l&apos;historique de chaque disque, comme génération suivante.</translation>
    </message>
    <message>
        <source>Each ticked disk is read in full and compared with the list of files on it. The source is not needed.</source>
        <translation>Chaque disque coché est lu en entier et comparé à la liste de fichiers qu&apos;il contient. La source n&apos;est pas nécessaire.</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Disk</source>
        <translation>Disque</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Lu</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Verdict</translation>
    </message>
    <message>
        <source>Disks</source>
        <translation>Disques</translation>
    </message>
    <message>
        <source>Add a Folder to Verify</source>
        <translation>Ajouter un dossier à vérifier</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>Arrê&amp;ter</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>&amp;Vérifier</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Arrêté</translation>
    </message>
    <message>
        <source>There is no list of files</source>
        <translation>Aucune liste de fichiers</translation>
    </message>
    <message>
        <source>Not verified</source>
        <translation>Non vérifié</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>Intact</translation>
    </message>
    <message>
        <source>Not whole</source>
        <translation>Pas intact</translation>
    </message>
</context>
<context>
    <name>orvana::VersionWindow</name>
    <message>
        <source>A new version is available for download at</source>
        <translation>Une nouvelle version est disponible sur</translation>
    </message>
    <message>
        <source>You are running the most current version of</source>
        <translation>Vous utilisez la dernière version de</translation>
    </message>
    <message>
        <source>Orvana Plurimo</source>
        <translation>Orvana Plurimo</translation>
    </message>
</context>
</TS>
