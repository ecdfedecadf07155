<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>BaySetupSheet</name>
    <message>
        <source>Set up bays - Orvana Plurimo</source>
        <translation>Configurar las bahías - Orvana Plurimo</translation>
    </message>
    <message>
        <source>Name of the &amp;enclosure:</source>
        <translation>Nombre de la ca&amp;ja:</translation>
    </message>
    <message>
        <source>Name of the enclosure</source>
        <translation>Nombre de la caja</translation>
    </message>
    <message>
        <source>for example: Desk dock</source>
        <translation>por ejemplo: Base del escritorio</translation>
    </message>
    <message>
        <source>Bay A</source>
        <translation>Bahía A</translation>
    </message>
    <message>
        <source>Bay B</source>
        <translation>Bahía B</translation>
    </message>
    <message>
        <source>Bay C</source>
        <translation>Bahía C</translation>
    </message>
    <message>
        <source>Bay D</source>
        <translation>Bahía D</translation>
    </message>
    <message>
        <source>&amp;No such bay</source>
        <translation>&amp;No hay tal bahía</translation>
    </message>
    <message>
        <source>The enclosure does not have the bay that is asked for</source>
        <translation>La caja no tiene la bahía que se pide</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>&amp;Hecho</translation>
    </message>
    <message>
        <source>Writes the enclosure</source>
        <translation>Guarda la caja</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
</context>
<context>
    <name>CopyActionViewController</name>
    <message>
        <source>Options for this run</source>
        <translation>Opciones de esta duplicación</translation>
    </message>
</context>
<context>
    <name>Core</name>
    <message>
        <source>None</source>
        <translation>Ninguno</translation>
    </message>
    <message>
        <source>Unformatted</source>
        <translation>Sin formato</translation>
    </message>
    <message>
        <source>Select an Orvana Storage Device</source>
        <translation>Elija un dispositivo Orvana</translation>
    </message>
    <message>
        <source>Source Disk (Slot-A)</source>
        <translation>Disco de origen (Slot-A)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-A)</source>
        <translation>Disco de destino (Slot-A)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-B)</source>
        <translation>Disco de destino (Slot-B)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-C)</source>
        <translation>Disco de destino (Slot-C)</translation>
    </message>
    <message>
        <source>Destination Disk (Slot-D)</source>
        <translation>Disco de destino (Slot-D)</translation>
    </message>
    <message>
        <source>Duplicating %1</source>
        <translation>Duplicando %1</translation>
    </message>
    <message>
        <source>Verifying File ...</source>
        <translation>Verificando archivo...</translation>
    </message>
    <message>
        <source>Verifying File ... Failed</source>
        <translation>Verificando archivo... con error</translation>
    </message>
    <message>
        <source>Verifying File ... Succeeded</source>
        <translation>Verificando archivo... correcto</translation>
    </message>
    <message>
        <source>Erasing the destination disks. The window answers again when it is done.</source>
        <translation>Borrando los discos de destino. La ventana responderá después.</translation>
    </message>
    <message>
        <source>Eject %1</source>
        <translation>Expulsar: %1</translation>
    </message>
    <message>
        <source>Mount %1</source>
        <translation>Montar: %1</translation>
    </message>
    <message>
        <source>You must select a Orvana Storage Device first.</source>
        <translation>Primero debe elegir un dispositivo de almacenamiento Orvana.</translation>
    </message>
    <message>
        <source>The selected device is no longer there.</source>
        <translation>El dispositivo elegido ya no está.</translation>
    </message>
    <message>
        <source>Another device has taken the place of the selected one.</source>
        <translation>Otro dispositivo ha ocupado el lugar del elegido.</translation>
    </message>
    <message>
        <source>This device cannot be selected when it&apos;s used as a startup disk.</source>
        <translation>Este dispositivo no se puede elegir porque es el disco de arranque.</translation>
    </message>
    <message>
        <source>Nothing is selected to be copied, so no disk is erased.</source>
        <translation>No hay nada elegido para copiar, así que no se borra ningún disco.</translation>
    </message>
    <message>
        <source>The source is not there any more, or another disk has taken its place. Nothing was touched. Choose the source again.</source>
        <translation>El origen ya no está, o lo ha sustituido otro disco. No se ha tocado nada. Elija el origen de nuevo.</translation>
    </message>
    <message>
        <source>The source is not there any more, or another disk has taken its place. Nothing was copied; the report says which disks were erased. Choose the source again.</source>
        <translation>El origen ya no está, o lo ha sustituido otro disco. No se ha copiado nada; el informe dice qué discos se borraron. Elija el origen de nuevo.</translation>
    </message>
    <message>
        <source>A disk of the run before does not answer. Nothing was erased.</source>
        <translation>Un disco de la duplicación anterior no responde. No se ha borrado nada.</translation>
    </message>
    <message>
        <source>The device is not the one that was chosen when the start began. Nothing was touched.</source>
        <translation>El dispositivo no es el que se eligió al iniciar. No se ha tocado nada.</translation>
    </message>
    <message>
        <source>The disks are not those that were shown any more. Nothing was touched.</source>
        <translation>Los discos ya no son los que se mostraban. No se ha tocado nada.</translation>
    </message>
    <message>
        <source>it carries the source</source>
        <translation>contiene el origen</translation>
    </message>
    <message>
        <source>it cannot be told from a disk of the source</source>
        <translation>no se distingue de un disco del origen</translation>
    </message>
    <message>
        <source>it is the start-up disk</source>
        <translation>es el disco de arranque</translation>
    </message>
    <message>
        <source>it belongs to a RAID set</source>
        <translation>pertenece a un conjunto RAID</translation>
    </message>
    <message>
        <source>it has no device node</source>
        <translation>no tiene archivo de dispositivo</translation>
    </message>
    <message>
        <source>another disk claims the same place</source>
        <translation>otro disco reclama el mismo lugar</translation>
    </message>
    <message>
        <source>its volume has no name</source>
        <translation>su volumen no tiene nombre</translation>
    </message>
    <message>
        <source>its volume is not mounted</source>
        <translation>su volumen no está montado</translation>
    </message>
    <message>
        <source>it is not the disk that was shown</source>
        <translation>no es el disco que se mostraba</translation>
    </message>
    <message>
        <source>its erase did not succeed</source>
        <translation>su borrado no se logró</translation>
    </message>
    <message>
        <source>it no longer holds the volume that was shown</source>
        <translation>ya no contiene el volumen que se mostraba</translation>
    </message>
    <message>
        <source>another run is at work on its volume</source>
        <translation>otra duplicación trabaja en su volumen</translation>
    </message>
    <message>
        <source>its volume is mounted read-only</source>
        <translation>su volumen está montado solo para lectura</translation>
    </message>
    <message>
        <source>the selection does not fit</source>
        <translation>la selección no cabe</translation>
    </message>
    <message>
        <source>a bay before it shows the same name</source>
        <translation>una bahía anterior muestra el mismo nombre</translation>
    </message>
    <message>
        <source>the erase was stopped before it</source>
        <translation>el borrado se detuvo antes</translation>
    </message>
    <message>
        <source>the disk utility could not be started</source>
        <translation>no se pudo iniciar la utilidad de discos</translation>
    </message>
    <message>
        <source>a disk needs a name</source>
        <translation>un disco necesita un nombre</translation>
    </message>
    <message>
        <source>this cannot be the name of a disk</source>
        <translation>un disco no puede llamarse así</translation>
    </message>
    <message>
        <source>a name cannot hold &quot;/&quot;</source>
        <translation>un nombre no puede contener «/»</translation>
    </message>
    <message>
        <source>a name is text on one line</source>
        <translation>un nombre es texto en una línea</translation>
    </message>
    <message>
        <source>this is the name of the source</source>
        <translation>es el nombre del origen</translation>
    </message>
    <message>
        <source>a name cannot begin or end with a blank, nor hold two in a row</source>
        <translation>un nombre no puede empezar ni acabar con un espacio, ni tener dos seguidos</translation>
    </message>
    <message>
        <source>Not ejected:</source>
        <translation>No expulsados:</translation>
    </message>
    <message>
        <source>Choose the enclosure first, and open the job when no run goes on.</source>
        <translation>Elija primero la caja y abra el trabajo cuando no haya duplicación en marcha.</translation>
    </message>
    <message>
        <source>Nothing is ticked, so there is no job to save.</source>
        <translation>No hay nada marcado, así que no hay trabajo que guardar.</translation>
    </message>
    <message>
        <source>the job could not be written</source>
        <translation>no se pudo escribir el trabajo</translation>
    </message>
    <message>
        <source>the source of the job is not there</source>
        <translation>el origen del trabajo no está</translation>
    </message>
    <message>
        <source>two volumes have the id of the job&apos;s source</source>
        <translation>dos volúmenes tienen el identificador del origen del trabajo</translation>
    </message>
    <message>
        <source>another source has the same name; rename one of them</source>
        <translation>otro origen tiene el mismo nombre; cambie uno de los dos</translation>
    </message>
    <message>
        <source>no such file or folder in the source</source>
        <translation>no existe ese archivo o carpeta en el origen</translation>
    </message>
    <message>
        <source>The demo cannot be started.</source>
        <translation>No se puede iniciar la demo.</translation>
    </message>
    <message>
        <source>Disks are at work. Bays can be set up when that has ended.</source>
        <translation>Hay discos trabajando. Las bahías se podrán configurar después.</translation>
    </message>
    <message>
        <source>an enclosure needs two to four bays</source>
        <translation>una caja necesita de dos a cuatro bahías</translation>
    </message>
    <message>
        <source>an ASC MHL manifest cannot hold sha256 digests</source>
        <translation>un manifiesto ASC MHL no puede contener sumas sha256</translation>
    </message>
    <message>
        <source>a checksum file cannot hold c4 digests</source>
        <translation>un archivo de sumas no puede contener sumas c4</translation>
    </message>
    <message>
        <source>A run that goes on with the last one erases no disk. Switch one of the two off.</source>
        <translation>Una duplicación que continúa la última no borra ningún disco. Desactive una de las dos opciones.</translation>
    </message>
    <message>
        <source>A production line is armed. Disarm it first.</source>
        <translation>Hay una línea de producción armada. Desármela primero.</translation>
    </message>
    <message>
        <source>it was in the bay already</source>
        <translation>ya estaba en la bahía</translation>
    </message>
    <message>
        <source>its countdown was stopped</source>
        <translation>se detuvo su cuenta atrás</translation>
    </message>
    <message>
        <source>it has no serial number</source>
        <translation>no tiene número de serie</translation>
    </message>
    <message>
        <source>a disk with its serial number is in another bay</source>
        <translation>hay un disco con su número de serie en otra bahía</translation>
    </message>
    <message>
        <source>as many disks as are wanted are done or in work</source>
        <translation>ya hay tantos discos hechos o en proceso como se desean</translation>
    </message>
    <message>
        <source>the line is paused</source>
        <translation>la línea está en pausa</translation>
    </message>
    <message>
        <source>the line has ended</source>
        <translation>la línea ha terminado</translation>
    </message>
    <message>
        <source>no more disks were wanted for now</source>
        <translation>por ahora no se quisieron más discos</translation>
    </message>
    <message>
        <source>a line counts only disks that were verified; the job does not verify</source>
        <translation>una línea solo cuenta discos verificados; el trabajo no verifica</translation>
    </message>
    <message>
        <source>a line begins each disk anew; the job goes on with the last run</source>
        <translation>una línea empieza cada disco de nuevo; el trabajo continúa la última duplicación</translation>
    </message>
    <message>
        <source>the names of disks in two bays would be the same; put {n} or {bay} into the pattern</source>
        <translation>los nombres de los discos de dos bahías serían iguales; ponga {n} o {bay} en el patrón</translation>
    </message>
    <message>
        <source>it calls itself failing</source>
        <translation>se declara defectuoso</translation>
    </message>
    <message>
        <source>good</source>
        <translation>bueno</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>advertencia</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>no se sabe</translation>
    </message>
    <message>
        <source>calls itself failing</source>
        <translation>se declara defectuoso</translation>
    </message>
    <message>
        <source>1 bad sector</source>
        <translation>1 sector defectuoso</translation>
    </message>
    <message>
        <source>%1 bad sectors</source>
        <translation>%1 sectores defectuosos</translation>
    </message>
    <message>
        <source>%1 of them new</source>
        <translation>%1 de ellos nuevos</translation>
    </message>
    <message>
        <source>1 new error</source>
        <translation>1 error nuevo</translation>
    </message>
    <message>
        <source>%1 new errors</source>
        <translation>%1 errores nuevos</translation>
    </message>
    <message>
        <source>hot</source>
        <translation>caliente</translation>
    </message>
    <message>
        <source>its temperature is out of its own limits</source>
        <translation>su temperatura está fuera de sus propios límites</translation>
    </message>
    <message>
        <source>the link is down to 1.5 Gbps</source>
        <translation>el enlace ha bajado a 1.5 Gbps</translation>
    </message>
    <message>
        <source>1 value at its limit</source>
        <translation>1 valor en su límite</translation>
    </message>
    <message>
        <source>%1 values at its limit</source>
        <translation>%1 valores en su límite</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 hora</translation>
    </message>
    <message>
        <source>%1 hours</source>
        <translation>%1 horas</translation>
    </message>
</context>
<context>
    <name>DiskInfoViewController</name>
    <message>
        <source>So&amp;urce</source>
        <translation>Ori&amp;gen</translation>
    </message>
    <message>
        <source>Source disk</source>
        <translation>Disco de origen</translation>
    </message>
    <message>
        <source>Volume name of source</source>
        <translation>Nombre del volumen de origen</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modelo</translation>
    </message>
    <message>
        <source>Model of source</source>
        <translation>Modelo del origen</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>N.º serie</translation>
    </message>
    <message>
        <source>Serial number of source</source>
        <translation>Número de serie del origen</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Libre</translation>
    </message>
    <message>
        <source>Free space of source</source>
        <translation>Espacio libre del origen</translation>
    </message>
    <message>
        <source>Capacity</source>
        <translation>Capacidad</translation>
    </message>
    <message>
        <source>Capacity of source</source>
        <translation>Capacidad del origen</translation>
    </message>
    <message>
        <source>Slot-A</source>
        <translation>Slot-A</translation>
    </message>
    <message>
        <source>Volume name of bay A</source>
        <translation>Nombre del volumen de la bahía A</translation>
    </message>
    <message>
        <source>Model of bay A</source>
        <translation>Modelo de la bahía A</translation>
    </message>
    <message>
        <source>Serial number of bay A</source>
        <translation>Número de serie de la bahía A</translation>
    </message>
    <message>
        <source>Free space of bay A</source>
        <translation>Espacio libre de la bahía A</translation>
    </message>
    <message>
        <source>Capacity of bay A</source>
        <translation>Capacidad de la bahía A</translation>
    </message>
    <message>
        <source>Does not fit</source>
        <translation>No cabe</translation>
    </message>
    <message>
        <source>Warning for bay A</source>
        <translation>Aviso de la bahía A</translation>
    </message>
    <message>
        <source>RAID</source>
        <translation>RAID</translation>
    </message>
    <message>
        <source>RAID marker of bay A</source>
        <translation>Indicación RAID de la bahía A</translation>
    </message>
    <message>
        <source>Slot-B</source>
        <translation>Slot-B</translation>
    </message>
    <message>
        <source>Volume name of bay B</source>
        <translation>Nombre del volumen de la bahía B</translation>
    </message>
    <message>
        <source>Model of bay B</source>
        <translation>Modelo de la bahía B</translation>
    </message>
    <message>
        <source>Serial number of bay B</source>
        <translation>Número de serie de la bahía B</translation>
    </message>
    <message>
        <source>Free space of bay B</source>
        <translation>Espacio libre de la bahía B</translation>
    </message>
    <message>
        <source>Capacity of bay B</source>
        <translation>Capacidad de la bahía B</translation>
    </message>
    <message>
        <source>Warning for bay B</source>
        <translation>Aviso de la bahía B</translation>
    </message>
    <message>
        <source>RAID marker of bay B</source>
        <translation>Indicación RAID de la bahía B</translation>
    </message>
    <message>
        <source>Slot-C</source>
        <translation>Slot-C</translation>
    </message>
    <message>
        <source>Volume name of bay C</source>
        <translation>Nombre del volumen de la bahía C</translation>
    </message>
    <message>
        <source>Model of bay C</source>
        <translation>Modelo de la bahía C</translation>
    </message>
    <message>
        <source>Serial number of bay C</source>
        <translation>Número de serie de la bahía C</translation>
    </message>
    <message>
        <source>Free space of bay C</source>
        <translation>Espacio libre de la bahía C</translation>
    </message>
    <message>
        <source>Capacity of bay C</source>
        <translation>Capacidad de la bahía C</translation>
    </message>
    <message>
        <source>Warning for bay C</source>
        <translation>Aviso de la bahía C</translation>
    </message>
    <message>
        <source>RAID marker of bay C</source>
        <translation>Indicación RAID de la bahía C</translation>
    </message>
    <message>
        <source>Slot-D</source>
        <translation>Slot-D</translation>
    </message>
    <message>
        <source>Volume name of bay D</source>
        <translation>Nombre del volumen de la bahía D</translation>
    </message>
    <message>
        <source>Model of bay D</source>
        <translation>Modelo de la bahía D</translation>
    </message>
    <message>
        <source>Serial number of bay D</source>
        <translation>Número de serie de la bahía D</translation>
    </message>
    <message>
        <source>Free space of bay D</source>
        <translation>Espacio libre de la bahía D</translation>
    </message>
    <message>
        <source>Capacity of bay D</source>
        <translation>Capacidad de la bahía D</translation>
    </message>
    <message>
        <source>Warning for bay D</source>
        <translation>Aviso de la bahía D</translation>
    </message>
    <message>
        <source>RAID marker of bay D</source>
        <translation>Indicación RAID de la bahía D</translation>
    </message>
    <message>
        <source>E&amp;ject</source>
        <translation>E&amp;xpulsar</translation>
    </message>
    <message>
        <source>Eject source disk</source>
        <translation>Expulsar el disco de origen</translation>
    </message>
    <message>
        <source>Eject the source disk</source>
        <translation>Expulsa el disco de origen</translation>
    </message>
    <message>
        <source>Destinations</source>
        <translation>Destinos</translation>
    </message>
    <message>
        <source>Eject A&amp;ll</source>
        <translation>Expu&amp;lsar todo</translation>
    </message>
    <message>
        <source>Eject destination disks</source>
        <translation>Expulsar los discos de destino</translation>
    </message>
    <message>
        <source>Eject all destination disks</source>
        <translation>Expulsa todos los discos de destino</translation>
    </message>
</context>
<context>
    <name>FileListViewController</name>
    <message>
        <source>Files and folders to duplicate</source>
        <translation>Archivos y carpetas por duplicar</translation>
    </message>
    <message>
        <source>Ticked files</source>
        <translation>Archivos marcados</translation>
    </message>
</context>
<context>
    <name>LogDataWindows</name>
    <message>
        <source>Run Logs</source>
        <translation>Registros</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Abrir carpeta</translation>
    </message>
    <message>
        <source>Opens the folder of the logs in the file manager</source>
        <translation>Abre la carpeta de los registros en el gestor de archivos</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Actualizar</translation>
    </message>
    <message>
        <source>Reads the folder of the logs again</source>
        <translation>Vuelve a leer la carpeta de los registros</translation>
    </message>
    <message>
        <source>Logs</source>
        <translation>Registros</translation>
    </message>
    <message>
        <source>The newest log comes first. Backspace or Delete removes the selected one.</source>
        <translation>El registro más reciente va primero. Retroceso o Supr borra el seleccionado.</translation>
    </message>
    <message>
        <source>Find in the log</source>
        <translation>Buscar en el registro</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Anterior</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>Buscar el anterior</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Siguiente</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>Buscar el siguiente</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>No se encontró</translation>
    </message>
    <message>
        <source>Text of the log</source>
        <translation>Texto del registro</translation>
    </message>
    <message>
        <source>Delete All Logs</source>
        <translation>Borrar todos los registros</translation>
    </message>
    <message>
        <source>Removes every log in the list and its report at once, without asking.</source>
        <translation>Borra al momento todos los registros de la lista y sus informes, sin preguntar.</translation>
    </message>
    <message>
        <source>Removes every log in the list and its report at once, without asking</source>
        <translation>Borra al momento todos los registros de la lista y sus informes, sin preguntar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
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
        <translation>Mensaje de progreso</translation>
    </message>
    <message>
        <source>Stage of the run</source>
        <translation>Etapa de la duplicación</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Todo</translation>
    </message>
    <message>
        <source>This file</source>
        <translation>Este archivo</translation>
    </message>
    <message>
        <source>The whole run</source>
        <translation>Toda la duplicación</translation>
    </message>
    <message>
        <source>The current file</source>
        <translation>El archivo actual</translation>
    </message>
    <message>
        <source>Progress of the whole run</source>
        <translation>Progreso de toda la duplicación</translation>
    </message>
    <message>
        <source>Progress of the current file</source>
        <translation>Progreso del archivo actual</translation>
    </message>
    <message>
        <source>?</source>
        <translation>?</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>How to use Orvana Plurimo</source>
        <translation>Cómo usar Orvana Plurimo</translation>
    </message>
</context>
<context>
    <name>NoEnclosureView</name>
    <message>
        <source>No enclosure was found.</source>
        <translation>No se encontró ninguna caja.</translation>
    </message>
    <message>
        <source>Set up &amp;bays...</source>
        <translation>Configurar ba&amp;hías...</translation>
    </message>
    <message>
        <source>Says which ports of a dock or a case are the bays of an enclosure</source>
        <translation>Indica qué puertos de una base son las bahías de una caja</translation>
    </message>
    <message>
        <source>&amp;Try the demo</source>
        <translation>&amp;Probar la demo</translation>
    </message>
    <message>
        <source>Opens a second window on a machine that is simulated</source>
        <translation>Abre una segunda ventana con una máquina simulada</translation>
    </message>
</context>
<context>
    <name>Obsidio</name>
    <message>
        <source>Orvana Plurimo for Obsidio</source>
        <translation>Orvana Plurimo para Obsidio</translation>
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
        <translation>Ayuda</translation>
    </message>
</context>
<context>
    <name>ProgressBarViewController</name>
    <message>
        <source>Status</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>Progress of the whole run</source>
        <translation>Progreso de toda la duplicación</translation>
    </message>
    <message>
        <source>Progress of the current file</source>
        <translation>Progreso del archivo actual</translation>
    </message>
</context>
<context>
    <name>RunReportWindow</name>
    <message>
        <source>Run Report - Orvana Plurimo</source>
        <translation>Informe - Orvana Plurimo</translation>
    </message>
    <message>
        <source>What each destination got</source>
        <translation>Lo que recibió cada destino</translation>
    </message>
    <message>
        <source>Files that failed or differ</source>
        <translation>Archivos fallidos o distintos</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copiar</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Guardar</translation>
    </message>
    <message>
        <source>Save the report file (JSON)</source>
        <translation>Guarda el archivo del informe (JSON)</translation>
    </message>
    <message>
        <source>Save as &amp;PDF</source>
        <translation>Guardar como &amp;PDF</translation>
    </message>
    <message>
        <source>Save a certificate for each disk as PDF</source>
        <translation>Guarda un certificado por disco en PDF</translation>
    </message>
    <message>
        <source>Save as &amp;HTML</source>
        <translation>Guardar como &amp;HTML</translation>
    </message>
    <message>
        <source>Save a certificate for each disk as HTML</source>
        <translation>Guarda un certificado por disco en HTML</translation>
    </message>
    <message>
        <source>Open &amp;log</source>
        <translation>&amp;Abrir registro</translation>
    </message>
    <message>
        <source>Clos&amp;e</source>
        <translation>C&amp;errar</translation>
    </message>
</context>
<context>
    <name>TBDeviceViewController</name>
    <message>
        <source>&amp;Not used...</source>
        <translation>Si&amp;n usar...</translation>
    </message>
    <message>
        <source>Says why devices that are attached cannot be used</source>
        <translation>Dice por qué no se pueden usar dispositivos conectados</translation>
    </message>
    <message>
        <source>Orvana storage device</source>
        <translation>Dispositivo de almacenamiento Orvana</translation>
    </message>
</context>
<context>
    <name>VersionWindow</name>
    <message>
        <source>Check for Updates</source>
        <translation>Buscar actualizaciones</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>orvana::BayRunView</name>
    <message>
        <source>Run of %1</source>
        <translation>Duplicación de la %1</translation>
    </message>
    <message>
        <source>State of %1</source>
        <translation>Estado de la %1</translation>
    </message>
    <message>
        <source>Progress of %1</source>
        <translation>Progreso de la %1</translation>
    </message>
    <message>
        <source>Rate of %1</source>
        <translation>Velocidad de la %1</translation>
    </message>
    <message>
        <source>Time left for %1</source>
        <translation>Tiempo restante de la %1</translation>
    </message>
</context>
<context>
    <name>orvana::BaySetupSheet</name>
    <message>
        <source>no such bay</source>
        <translation>no hay tal bahía</translation>
    </message>
    <message>
        <source>Put a disk into bay %1. If one is there already, take it out and put it in again.</source>
        <translation>Ponga un disco en la bahía %1. Si ya hay uno, sáquelo y vuelva a ponerlo.</translation>
    </message>
    <message>
        <source>All bays have been asked for. Press Cancel and begin again.</source>
        <translation>Ya se han pedido todas las bahías. Pulse Cancelar y empiece de nuevo.</translation>
    </message>
    <message>
        <source>All bays have been asked for.</source>
        <translation>Ya se han pedido todas las bahías.</translation>
    </message>
    <message>
        <source>Type a name for the enclosure.</source>
        <translation>Escriba un nombre para la caja.</translation>
    </message>
    <message>
        <source>Waiting for the permission to write it ...</source>
        <translation>Esperando el permiso para escribir...</translation>
    </message>
    <message>
        <source>Done writes an enclosure with %1 bays.</source>
        <translation>«Hecho» guarda una caja con %1 bahías.</translation>
    </message>
    <message>
        <source>waiting for a disk</source>
        <translation>esperando un disco</translation>
    </message>
</context>
<context>
    <name>orvana::CopyActionViewController</name>
    <message>
        <source>&amp;Erase destination disk(s)</source>
        <translation>&amp;Borrar discos de destino</translation>
    </message>
    <message>
        <source>Erase destination disk(s)</source>
        <translation>Borrar discos de destino</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>&amp;Verificar</translation>
    </message>
    <message>
        <source>Verify</source>
        <translation>Verificar</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Iniciar</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Iniciar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>orvana::DiskInfoViewController</name>
    <message>
        <source>bay %1</source>
        <translation>bahía %1</translation>
    </message>
    <message>
        <source>(no name)</source>
        <translation>(sin nombre)</translation>
    </message>
</context>
<context>
    <name>orvana::FileListViewController</name>
    <message>
        <source>%1 File(s)     Size : %2</source>
        <translation>%1 archivo(s)     Tamaño: %2</translation>
    </message>
</context>
<context>
    <name>orvana::LineTile</name>
    <message>
        <source>Not armed</source>
        <translation>No armada</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>Esperando</translation>
    </message>
    <message>
        <source>Looking</source>
        <translation>Examinando</translation>
    </message>
    <message>
        <source>Not taken</source>
        <translation>No aceptado</translation>
    </message>
    <message>
        <source>Asking</source>
        <translation>Pregunta</translation>
    </message>
    <message>
        <source>Begins in</source>
        <translation>Empieza en</translation>
    </message>
    <message>
        <source>Erasing</source>
        <translation>Borrando</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>Copiando</translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation>Verificando</translation>
    </message>
    <message>
        <source>Ejecting</source>
        <translation>Expulsando</translation>
    </message>
    <message>
        <source>Passed</source>
        <translation>Aprobado</translation>
    </message>
    <message>
        <source>Not proven</source>
        <translation>No probado</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fallido</translation>
    </message>
    <message>
        <source>Yes, write this disk</source>
        <translation>Sí, escribir este disco</translation>
    </message>
    <message>
        <source>State of bay %1</source>
        <translation>Estado de la bahía %1</translation>
    </message>
    <message>
        <source>Progress of bay %1</source>
        <translation>Progreso de la bahía %1</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Origen</translation>
    </message>
</context>
<context>
    <name>orvana::LineWindow</name>
    <message>
        <source>Production Line</source>
        <translation>Línea de producción</translation>
    </message>
    <message>
        <source>Each disk that comes into an armed bay gets this, and is verified: %1, files: %2, %3</source>
        <translation>Cada disco que entra en una bahía armada recibe esto y se verifica: %1, archivos: %2, %3</translation>
    </message>
    <message>
        <source>&amp;Line:</source>
        <translation>&amp;Línea:</translation>
    </message>
    <message>
        <source>&amp;Title:</source>
        <translation>&amp;Título:</translation>
    </message>
    <message>
        <source>&amp;Number of disks:</source>
        <translation>&amp;Número de discos:</translation>
    </message>
    <message>
        <source>May hold {n:03} for the number, {serial}, {bay} and {date}</source>
        <translation>Puede contener {n:03} para el número, {serial}, {bay} y {date}</translation>
    </message>
    <message>
        <source>N&amp;ames of the disks:</source>
        <translation>N&amp;ombres de los discos:</translation>
    </message>
    <message>
        <source>Bay &amp;%1</source>
        <translation>Bahía &amp;%1</translation>
    </message>
    <message>
        <source>Armed bays:</source>
        <translation>Bahías armadas:</translation>
    </message>
    <message>
        <source>A&amp;rm</source>
        <translation>A&amp;rmar</translation>
    </message>
    <message>
        <source>Disks made</source>
        <translation>Discos hechos</translation>
    </message>
    <message>
        <source>No &amp;more disks</source>
        <translation>No &amp;más discos</translation>
    </message>
    <message>
        <source>New line</source>
        <translation>Línea nueva</translation>
    </message>
    <message>
        <source>Disks are still in work.</source>
        <translation>Aún hay discos en proceso.</translation>
    </message>
    <message>
        <source>The words are &quot;%1&quot;.</source>
        <translation>Las palabras son «%1».</translation>
    </message>
    <message>
        <source>No bay is ticked.</source>
        <translation>No hay ninguna bahía marcada.</translation>
    </message>
    <message>
        <source>Any key, and any click beside a button, stops a countdown.</source>
        <translation>Cualquier tecla, o un clic fuera de los botones, detiene una cuenta atrás.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>&amp;Go on</source>
        <translation>&amp;Continuar</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Pausa</translation>
    </message>
    <message>
        <source>No more disks are taken: %1</source>
        <translation>No se aceptan más discos: %1</translation>
    </message>
    <message>
        <source>The window closes when the disks in work are done.</source>
        <translation>La ventana se cierra cuando terminen los discos en proceso.</translation>
    </message>
    <message>
        <source>To be as&amp;ked about no disk&apos;s content, type &quot;%1&quot;:</source>
        <translation>Para que no se &amp;pregunte por el contenido de ningún disco, escriba «%1»:</translation>
    </message>
</context>
<context>
    <name>orvana::LogDataWindows</name>
    <message>
        <source>This log is long. Only its end is shown, at most the last 10 MB.</source>
        <translation>Este registro es largo. Solo se muestra el final, como mucho los últimos 10 MB.</translation>
    </message>
</context>
<context>
    <name>orvana::MainMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>&amp;Rescan</source>
        <translation>&amp;Volver a explorar</translation>
    </message>
    <message>
        <source>&amp;Logs</source>
        <translation>&amp;Registros</translation>
    </message>
    <message>
        <source>&amp;Open job...</source>
        <translation>&amp;Abrir trabajo...</translation>
    </message>
    <message>
        <source>&amp;Save job...</source>
        <translation>&amp;Guardar trabajo...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>&amp;Duplicación</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Iniciar</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>&amp;Verificar</translation>
    </message>
    <message>
        <source>&amp;Erase Destination Disks</source>
        <translation>&amp;Borrar discos de destino</translation>
    </message>
    <message>
        <source>&amp;Options for this run...</source>
        <translation>&amp;Opciones de esta duplicación...</translation>
    </message>
    <message>
        <source>E&amp;ject Source</source>
        <translation>E&amp;xpulsar el origen</translation>
    </message>
    <message>
        <source>Eject &amp;Destinations</source>
        <translation>Expulsar los &amp;destinos</translation>
    </message>
    <message>
        <source>&amp;Mount disks</source>
        <translation>&amp;Montar discos</translation>
    </message>
    <message>
        <source>Set up &amp;bays...</source>
        <translation>Configurar ba&amp;hías...</translation>
    </message>
    <message>
        <source>&amp;Last Report</source>
        <translation>Ú&amp;ltimo informe</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>&amp;How to Use</source>
        <translation>&amp;Cómo se usa</translation>
    </message>
    <message>
        <source>&amp;Check for Updates</source>
        <translation>&amp;Buscar actualizaciones</translation>
    </message>
    <message>
        <source>&amp;About Orvana Plurimo</source>
        <translation>&amp;Acerca de Orvana Plurimo</translation>
    </message>
    <message>
        <source>Verify dis&amp;ks...</source>
        <translation>Verificar dis&amp;cos...</translation>
    </message>
    <message>
        <source>&amp;Go on with the last run</source>
        <translation>Con&amp;tinuar la última duplicación</translation>
    </message>
    <message>
        <source>&amp;Production line...</source>
        <translation>Línea de &amp;producción...</translation>
    </message>
</context>
<context>
    <name>orvana::MainWindow</name>
    <message>
        <source>Orvana Plurimo, the disk duplicator</source>
        <translation>Orvana Plurimo, el duplicador de discos</translation>
    </message>
    <message>
        <source>Version : %1</source>
        <translation>Versión: %1</translation>
    </message>
    <message>
        <source>for Obsidio</source>
        <translation>para Obsidio</translation>
    </message>
    <message>
        <source>Not used</source>
        <translation>Sin usar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Ejected</source>
        <translation>Expulsado</translation>
    </message>
    <message>
        <source>These disks can be taken out: %1</source>
        <translation>Se pueden sacar estos discos: %1</translation>
    </message>
    <message>
        <source>Nothing to mount</source>
        <translation>Nada que montar</translation>
    </message>
    <message>
        <source>No disk in a bay has a volume that is not mounted.</source>
        <translation>Ningún disco de una bahía tiene un volumen sin montar.</translation>
    </message>
    <message>
        <source>%1, serial number %2, was not mounted: %3</source>
        <translation>%1, número de serie %2, no se montó: %3</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Aviso</translation>
    </message>
    <message>
        <source>Save Job</source>
        <translation>Guardar trabajo</translation>
    </message>
    <message>
        <source>Open Job</source>
        <translation>Abrir trabajo</translation>
    </message>
    <message>
        <source>Jobs (*.plurimo)</source>
        <translation>Trabajos (*.plurimo)</translation>
    </message>
    <message>
        <source>Open log</source>
        <translation>Abrir registro</translation>
    </message>
    <message>
        <source>Disks are being duplicated. If you quit now, the copies are not complete.</source>
        <translation>Se están duplicando discos. Si sale ahora, las copias no estarán completas.</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Go On</source>
        <translation>Continuar</translation>
    </message>
    <message>
        <source>Infomation</source>
        <translation>Información</translation>
    </message>
    <message>
        <source>You must select a Orvana Storage Device first.</source>
        <translation>Primero debe elegir un dispositivo de almacenamiento Orvana.</translation>
    </message>
    <message>
        <source>File Copy Completed</source>
        <translation>Copia completada</translation>
    </message>
    <message>
        <source>All files have been copied successfully.</source>
        <translation>Todos los archivos se han copiado correctamente.</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Hecho</translation>
    </message>
    <message>
        <source>Duplication finished</source>
        <translation>Duplicación terminada</translation>
    </message>
    <message>
        <source>The device was removed while files were being duplicated to it. The run has ended; its copies are not complete.</source>
        <translation>El dispositivo se retiró durante la duplicación. Esta ha terminado; sus copias no están completas.</translation>
    </message>
    <message>
        <source>Duplication ended</source>
        <translation>Duplicación interrumpida</translation>
    </message>
    <message>
        <source>The device was removed. The copies are not complete.</source>
        <translation>El dispositivo se retiró. Las copias no están completas.</translation>
    </message>
    <message>
        <source>Nothing was duplicated</source>
        <translation>No se duplicó nada</translation>
    </message>
    <message>
        <source>There was nothing to copy, or no disk to copy to.</source>
        <translation>No había nada que copiar, o ningún disco de destino.</translation>
    </message>
    <message>
        <source>Waiting for bay %1: %2</source>
        <translation>Espera a la bahía %1: %2</translation>
    </message>
    <message>
        <source>Erased</source>
        <translation>Borrado</translation>
    </message>
    <message>
        <source>Not erased</source>
        <translation>No borrado</translation>
    </message>
    <message>
        <source>Erasing...</source>
        <translation>Borrando...</translation>
    </message>
    <message>
        <source>To be erased</source>
        <translation>Por borrar</translation>
    </message>
    <message>
        <source>Erasing disk %1 of %2: bay %3</source>
        <translation>Borrando disco %1 de %2: bahía %3</translation>
    </message>
    <message>
        <source>No part</source>
        <translation>Excluido</translation>
    </message>
    <message>
        <source>This device cannot be selected when it&apos;s used as a startup disk.</source>
        <translation>Este dispositivo no se puede elegir porque es el disco de arranque.</translation>
    </message>
    <message>
        <source>This device cannot be selected, because it includes a RAID set.</source>
        <translation>Este dispositivo no se puede elegir porque contiene un conjunto RAID.</translation>
    </message>
    <message>
        <source>The selected files are still being counted. The duplication goes on when that is done.</source>
        <translation>Aún se están contando los archivos elegidos. La duplicación seguirá después.</translation>
    </message>
    <message>
        <source>Insufficient Disk Space</source>
        <translation>Espacio insuficiente</translation>
    </message>
    <message>
        <source>There is insufficient free disk space on the destination drive(s).</source>
        <translation>No hay suficiente espacio libre en los discos de destino.</translation>
    </message>
    <message>
        <source>There is insufficient free disk space on the destination drive(s)</source>
        <translation>No hay suficiente espacio libre en estos discos de destino:</translation>
    </message>
    <message>
        <source>

Press OK to continue duplicating to the remaining drive(s).</source>
        <translation>

Pulse Aceptar para duplicar en los demás discos.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>The destination disks are being looked at.</source>
        <translation>Se están examinando los discos de destino.</translation>
    </message>
    <message>
        <source>These disks will lose everything they hold:</source>
        <translation>Estos discos perderán todo lo que contienen:</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Borrar</translation>
    </message>
    <message>
        <source>One moment</source>
        <translation>Un momento</translation>
    </message>
    <message>
        <source>What it has brought to these disks need not be copied again:</source>
        <translation>Lo que ya llevó a estos discos no hace falta copiarlo otra vez:</translation>
    </message>
    <message>
        <source>The last run was broken off</source>
        <translation>La última duplicación quedó interrumpida</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>Continuar</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Ahora no</translation>
    </message>
</context>
<context>
    <name>orvana::Obsidio</name>
    <message>
        <source>Copyright © 2026 The Orvana Plurimo developers</source>
        <translation>Copyright © 2026 Los desarrolladores de Orvana Plurimo</translation>
    </message>
    <message>
        <source>Version : %1</source>
        <translation>Versión: %1</translation>
    </message>
</context>
<context>
    <name>orvana::OrvanaAppDelegate</name>
    <message>
        <source>About Orvana Plurimo</source>
        <translation>Acerca de Orvana Plurimo</translation>
    </message>
    <message>
        <source>Orvana Plurimo %1</source>
        <translation>Orvana Plurimo %1</translation>
    </message>
    <message>
        <source>Duplicates disks: one read, many writes, verified.</source>
        <translation>Duplica discos: una lectura, muchas escrituras, verificadas.</translation>
    </message>
    <message>
        <source>The selected files are still being counted.</source>
        <translation>Todavía se están contando los archivos seleccionados.</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Advertencia</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>orvana::RunOptionsSheet</name>
    <message>
        <source>Options for this run</source>
        <translation>Opciones de esta duplicación</translation>
    </message>
    <message>
        <source>The next run does this as well:</source>
        <translation>La próxima duplicación hará también:</translation>
    </message>
</context>
<context>
    <name>orvana::RunReportWindow</name>
    <message>
        <source>Save Report</source>
        <translation>Guardar informe</translation>
    </message>
    <message>
        <source>Save Certificates as PDF</source>
        <translation>Guardar certificados en PDF</translation>
    </message>
    <message>
        <source>Save Certificates as HTML</source>
        <translation>Guardar certificados en HTML</translation>
    </message>
    <message>
        <source>Saved to %1.</source>
        <translation>Guardado en %1.</translation>
    </message>
    <message>
        <source>The report could not be written to %1.</source>
        <translation>No se pudo escribir el informe en %1.</translation>
    </message>
</context>
<context>
    <name>orvana::RunWords</name>
    <message>
        <source>Copying</source>
        <translation>Copiando</translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation>Verificando</translation>
    </message>
    <message>
        <source>Copying and verifying</source>
        <translation>Copiando y verificando</translation>
    </message>
    <message>
        <source>Writing out</source>
        <translation>Volcando</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>faltan %1</translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n fallido</numerusform>
            <numerusform>%n fallidos</numerusform>
        </translation>
    </message>
    <message>
        <source>Verified</source>
        <translation>Verificado</translation>
    </message>
    <message>
        <source>Complete</source>
        <translation>Completo</translation>
    </message>
    <message>
        <source>Not complete</source>
        <translation>Incompleto</translation>
    </message>
    <message>
        <source>Differs</source>
        <translation>Difiere</translation>
    </message>
    <message>
        <source>Not compared</source>
        <translation>No comparado</translation>
    </message>
    <message>
        <source>Not certain</source>
        <translation>No seguro</translation>
    </message>
    <message>
        <source>Not finished</source>
        <translation>Sin terminar</translation>
    </message>
    <message>
        <source>from the disk</source>
        <translation>desde el disco</translation>
    </message>
    <message>
        <source>in memory only</source>
        <translation>solo en memoria</translation>
    </message>
    <message>
        <source>not verified</source>
        <translation>sin verificar</translation>
    </message>
    <message>
        <source>not all verified</source>
        <translation>no todo verificado</translation>
    </message>
    <message>
        <source>read from memory</source>
        <translation>leído de la memoria</translation>
    </message>
    <message numerus="yes">
        <source>%n differ</source>
        <translation>
            <numerusform>%n difiere</numerusform>
            <numerusform>%n difieren</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not compared</source>
        <translation>
            <numerusform>%n sin comparar</numerusform>
            <numerusform>%n sin comparar</numerusform>
        </translation>
    </message>
    <message>
        <source>not known to be on disk</source>
        <translation>no se sabe si está en el disco</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nada</translation>
    </message>
    <message>
        <source>%1, and something that is not mounted</source>
        <translation>%1, y algo que no está montado</translation>
    </message>
    <message>
        <source>something that is not mounted, or cannot be read</source>
        <translation>algo que no está montado o no se puede leer</translation>
    </message>
    <message>
        <source>at least 1 file</source>
        <translation>al menos 1 archivo</translation>
    </message>
    <message numerus="yes">
        <source>at least %n files</source>
        <translation>
            <numerusform>al menos %n archivo</numerusform>
            <numerusform>al menos %n archivos</numerusform>
        </translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1 archivo</translation>
    </message>
    <message numerus="yes">
        <source>%n files</source>
        <translation>
            <numerusform>%n archivo</numerusform>
            <numerusform>%n archivos</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 en %2</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>desconocido</translation>
    </message>
    <message>
        <source>%1: %2, serial number %3, holds %4, will be %5</source>
        <translation>%1: %2, número de serie %3, contiene %4, será %5</translation>
    </message>
    <message>
        <source>%1: %2, serial number %3, now %4, holds %5, will be %6</source>
        <translation>%1: %2, número de serie %3, ahora %4, contiene %5, será %6</translation>
    </message>
    <message>
        <source>Eject each disk that holds every file at the end</source>
        <translation>Expulsar al final cada disco que tenga todos los archivos</translation>
    </message>
    <message>
        <source>Eject at the end</source>
        <translation>Expulsar al final</translation>
    </message>
    <message>
        <source>&amp;Manifest on each copy:</source>
        <translation>&amp;Manifiesto en cada copia:</translation>
    </message>
    <message>
        <source>&amp;Digest of each file:</source>
        <translation>&amp;Suma de cada archivo:</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ninguno</translation>
    </message>
    <message>
        <source>ASC MHL history</source>
        <translation>Historial ASC MHL</translation>
    </message>
    <message>
        <source>Checksum file</source>
        <translation>Archivo de sumas</translation>
    </message>
    <message>
        <source>Go on with the last run: what it has brought to the disks is not copied again</source>
        <translation>Continuar la última duplicación: lo que ya llevó a los discos no se copia otra vez</translation>
    </message>
    <message>
        <source>Compare what is there already with the source, and write only the blocks that differ</source>
        <translation>Comparar lo que ya hay con el origen y escribir solo los bloques que difieren</translation>
    </message>
    <message>
        <source>Cut longer files that are there already to the length of their source</source>
        <translation>Recortar los archivos más largos que ya hay a la longitud de su origen</translation>
    </message>
    <message>
        <source>When verifying, write blocks that differ once more</source>
        <translation>Al verificar, escribir otra vez los bloques que difieren</translation>
    </message>
    <message>
        <source>Go on with the last run</source>
        <translation>Continuar la última duplicación</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Actualizar</translation>
    </message>
    <message>
        <source>Exact lengths</source>
        <translation>Longitudes exactas</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Reparar</translation>
    </message>
    <message>
        <source>&amp;Keep of the source:</source>
        <translation>Conser&amp;var del origen:</translation>
    </message>
    <message>
        <source>Content alone</source>
        <translation>Solo el contenido</translation>
    </message>
    <message>
        <source>Dates</source>
        <translation>Fechas</translation>
    </message>
    <message>
        <source>All it has</source>
        <translation>Todo</translation>
    </message>
    <message>
        <source>Copy nothing</source>
        <translation>No copiar nada</translation>
    </message>
    <message>
        <source>Leave that disk out</source>
        <translation>Dejar fuera ese disco</translation>
    </message>
    <message>
        <source>Copy what can be copied</source>
        <translation>Copiar lo que se pueda</translation>
    </message>
    <message>
        <source>Do not look beforehand</source>
        <translation>No mirar antes</translation>
    </message>
    <message>
        <source>&amp;Where a disk cannot hold all:</source>
        <translation>Donde un disco no pue&amp;da con todo:</translation>
    </message>
    <message>
        <source>Ask each disk how it is, and leave out one that calls itself failing</source>
        <translation>Preguntar a cada disco por su estado y omitir el que se declare defectuoso</translation>
    </message>
    <message>
        <source>Health</source>
        <translation>Estado</translation>
    </message>
</context>
<context>
    <name>orvana::TBDeviceViewController</name>
    <message>
        <source>&amp;Orvana Storage Device :</source>
        <translation>Dispositivo &amp;Orvana:</translation>
    </message>
    <message>
        <source>&amp;Orvana Storage Device (%1) :</source>
        <translation>Dispositivo &amp;Orvana (%1):</translation>
    </message>
</context>
<context>
    <name>orvana::VerifyWindow</name>
    <message>
        <source>&amp;Record the result on the disks</source>
        <translation>&amp;Registrar el resultado en los discos</translation>
    </message>
    <message>
        <source>&amp;Add folder...</source>
        <translation>&amp;Añadir carpeta...</translation>
    </message>
    <message>
        <source>Verify Disks</source>
        <translation>Verificar discos</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>Lo que se encontró</translation>
    </message>
    <message>
        <source>Appends the result to the history on each disk, as its next generation.</source>
        <translation>Añade el resultado al historial de cada disco, como su siguiente generación.</translation>
    </message>
    <message>
        <source>Each ticked disk is read in full and compared with the list of files on it. The source is not needed.</source>
        <translation>Cada disco marcado se lee por completo y se compara con la lista de archivos que contiene. No se necesita el origen.</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message>
        <source>Disk</source>
        <translation>Disco</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Leído</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Veredicto</translation>
    </message>
    <message>
        <source>Disks</source>
        <translation>Discos</translation>
    </message>
    <message>
        <source>Add a Folder to Verify</source>
        <translation>Añadir una carpeta para verificar</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Detener</translation>
    </message>
    <message>
        <source>&amp;Verify</source>
        <translation>&amp;Verificar</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Detenido</translation>
    </message>
    <message>
        <source>There is no list of files</source>
        <translation>No hay lista de archivos</translation>
    </message>
    <message>
        <source>Not verified</source>
        <translation>No verificado</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>Íntegro</translation>
    </message>
    <message>
        <source>Not whole</source>
        <translation>No íntegro</translation>
    </message>
</context>
<context>
    <name>orvana::VersionWindow</name>
    <message>
        <source>A new version is available for download at</source>
        <translation>Hay una versión nueva disponible en</translation>
    </message>
    <message>
        <source>You are running the most current version of</source>
        <translation>Está usando la versión más reciente de</translation>
    </message>
    <message>
        <source>Orvana Plurimo</source>
        <translation>Orvana Plurimo</translation>
    </message>
</context>
</TS>
