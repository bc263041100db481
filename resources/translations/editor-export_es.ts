<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES">
    <context>
        <name>Dialog::ExportForm</name>
        <message>
            <source>This preset is not possible: %1</source>
            <translation>Este preajuste no es posible: %1</translation>
        </message>
        <message>
            <source>Neither picture nor sound would be in the file</source>
            <translation>El archivo no tendría ni imagen ni sonido</translation>
        </message>
        <message>
            <source>The first marker must come before the ending one</source>
            <translation>La primera marca debe ir antes que la última</translation>
        </message>
        <message>
            <source>“%1” is no time; write minutes and seconds as 1:30, or frames as 120f</source>
            <translation>«%1» no es un tiempo; escriba minutos y segundos como 1:30, o fotogramas como 120f</translation>
        </message>
        <message>
            <source>The in point must lie before the out point, and before the end</source>
            <translation>El punto de entrada debe estar antes del de salida y antes del final</translation>
        </message>
        <message>
            <source>What was opened cannot be exported</source>
            <translation>Lo que se abrió no se puede exportar</translation>
        </message>
        <message>
            <source>The source is being opened</source>
            <translation>Se está abriendo el origen</translation>
        </message>
        <message>
            <source>Open what is to be exported</source>
            <translation>Abra lo que se va a exportar</translation>
        </message>
        <message>
            <source>The file needs a name</source>
            <translation>El archivo necesita un nombre</translation>
        </message>
        <message>
            <source>The custom settings do not fit</source>
            <translation>Los ajustes propios no encajan</translation>
        </message>
        <message>
            <source>Write the file with its whole folder, or choose it with “Save as”</source>
            <translation>Escriba el archivo con su carpeta completa o elíjalo con «Guardar como»</translation>
        </message>
        <message>
            <source>The file is what is exported; save it under another name</source>
            <translation>El archivo es el propio origen; guárdelo con otro nombre</translation>
        </message>
    </context>
    <context>
        <name>Dialog::ExportWindow</name>
        <message>
            <source>Export</source>
            <translation>Exportar</translation>
        </message>
        <message>
            <source>&amp;Open…</source>
            <translation>Ab&amp;rir…</translation>
        </message>
        <message>
            <source>Use black for what is missing</source>
            <translation>Dejar en negro lo que falta</translation>
        </message>
        <message>
            <source>Add to &amp;queue</source>
            <translation>A&amp;ñadir a la cola</translation>
        </message>
        <message>
            <source>E&amp;xport</source>
            <translation>E&amp;xportar</translation>
        </message>
        <message>
            <source>Open what is to be exported</source>
            <translation>Abra lo que se va a exportar</translation>
        </message>
        <message>
            <source>Nothing is open</source>
            <translation>No hay nada abierto</translation>
        </message>
        <message>
            <source>Drop media files or a timeline here</source>
            <translation>Suelte aquí archivos multimedia o una línea de tiempo</translation>
        </message>
        <message>
            <source>Opening…</source>
            <translation>Abriendo…</translation>
        </message>
        <message numerus="yes">
            <source>and %n more</source>
            <translation>
                <numerusform>y %n más</numerusform>
                <numerusform>y %n más</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 – %2 – Export</source>
            <comment>state, file</comment>
            <translation>%1 – %2 – Exportar</translation>
        </message>
        <message>
            <source>takes %1</source>
            <comment>a time</comment>
            <translation>tarda %1</translation>
        </message>
        <message>
            <source>Another export in the list is to become “%1” as well. “%2”, which is there already, is replaced, too.</source>
            <translation>Otra exportación de la lista también se llamará «%1». «%2», que ya existe, también se sustituye.</translation>
        </message>
        <message>
            <source>Another export in the list is to become “%1” as well.</source>
            <translation>Otra exportación de la lista también se llamará «%1».</translation>
        </message>
        <message>
            <source>Add it all the same</source>
            <translation>Añadir de todos modos</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>Cancelar</translation>
        </message>
        <message>
            <source>“%1” is there already. It is replaced when the export is complete, and not before.</source>
            <translation>«%1» ya existe. Se sustituye cuando la exportación está completa, no antes.</translation>
        </message>
        <message>
            <source>Replace</source>
            <translation>Sustituir</translation>
        </message>
        <message>
            <source>A film is being exported</source>
            <translation>Se está exportando una película</translation>
        </message>
        <message>
            <source>Stop the export</source>
            <translation>Detener la exportación</translation>
        </message>
        <message>
            <source>Stop the export of “%1”? Nothing of it is kept.</source>
            <translation>¿Detener la exportación de «%1»? No se conserva nada.</translation>
        </message>
        <message>
            <source>Go on</source>
            <translation>Continuar</translation>
        </message>
        <message>
            <source>Close</source>
            <translation>Cerrar</translation>
        </message>
        <message>
            <source>An export is running, and others wait. Stop it and close? Nothing of it is kept, and the others are not made.</source>
            <translation>Hay una exportación en curso y otras en espera. ¿Detenerla y cerrar? No se conserva nada de ella y las demás no se realizan.</translation>
        </message>
        <message>
            <source>An export is running. Stop it and close? Nothing of it is kept.</source>
            <translation>Hay una exportación en curso. ¿Detenerla y cerrar? No se conserva nada.</translation>
        </message>
        <message>
            <source>Stop and close</source>
            <translation>Detener y cerrar</translation>
        </message>
        <message>
            <source>takes %1, at a rough guess</source>
            <comment>a time</comment>
            <translation>tarda %1, según un cálculo aproximado</translation>
        </message>
        <message>
            <source>Looking what stands at the file's place…</source>
            <translation>Se mira qué hay en el lugar del archivo…</translation>
        </message>
        <message>
            <source>The folder of “%1” does not answer. Check its disk or share, or save the export in another folder.</source>
            <translation>La carpeta de «%1» no responde. Compruebe su disco o recurso compartido, o guarde la exportación en otra carpeta.</translation>
        </message>
        <message>
            <source>“%1” is one of the inputs, and stays. Save the export under another name.</source>
            <translation>«%1» es una de las entradas y se conserva. Guarde la exportación con otro nombre.</translation>
        </message>
        <message numerus="yes">
            <source>%n export(s) were not started. Close without them?</source>
            <translation>
                <numerusform>Una exportación no se inició. ¿Cerrar sin ella?</numerusform>
                <numerusform>%n exportaciones no se iniciaron. ¿Cerrar sin ellas?</numerusform>
            </translation>
        </message>
        <message>
            <source>“%1” is a folder. Write the name of a file in it.</source>
            <translation>«%1» es una carpeta. Escriba el nombre de un archivo dentro de ella.</translation>
        </message>
        <message>
            <source>Look in a folder…</source>
            <translation>Buscar en una carpeta…</translation>
        </message>
        <message>
            <source>Folder in which the missing media are looked for</source>
            <translation>Carpeta en la que se buscan los medios que faltan</translation>
        </message>
        <message>
            <source>The folder of “%1” takes no files. Save the export in another folder.</source>
            <translation>La carpeta de «%1» no admite archivos. Guarde la exportación en otra carpeta.</translation>
        </message>
        <message>
            <source>“%1” has changed since it was opened, and is opened anew. Look at it, and export again.</source>
            <translation>«%1» ha cambiado desde que se abrió y se abre de nuevo. Revíselo y vuelva a exportar.</translation>
        </message>
    </context>
    <context>
        <name>Dialog::Job</name>
        <message>
            <source>Waiting</source>
            <translation>En espera</translation>
        </message>
        <message>
            <source>Starting</source>
            <translation>Iniciando</translation>
        </message>
        <message>
            <source>%1 %</source>
            <translation>%1 %</translation>
        </message>
        <message>
            <source>Checking</source>
            <translation>Comprobando</translation>
        </message>
        <message>
            <source>Stopping</source>
            <translation>Deteniendo</translation>
        </message>
        <message>
            <source>Stopped</source>
            <translation>Detenida</translation>
        </message>
        <message>
            <source>Done</source>
            <translation>Hecho</translation>
        </message>
        <message>
            <source>Failed</source>
            <translation>Error</translation>
        </message>
        <message>
            <source>%1 × real time</source>
            <translation>%1 × tiempo real</translation>
        </message>
        <message>
            <source>%1 left</source>
            <translation>queda %1</translation>
        </message>
        <message>
            <source>Done, with warnings</source>
            <translation>Hecho, con avisos</translation>
        </message>
    </context>
    <context>
        <name>Dialog::JobPane</name>
        <message>
            <source>&amp;Jobs:</source>
            <translation>Traba&amp;jos:</translation>
        </message>
        <message>
            <source>Start queue</source>
            <translation>Iniciar la cola</translation>
        </message>
        <message>
            <source>Nothing is selected.</source>
            <translation>No hay nada seleccionado.</translation>
        </message>
        <message>
            <source>It begins when the exports before it have ended.</source>
            <translation>Empieza cuando terminen las exportaciones anteriores.</translation>
        </message>
        <message>
            <source>Take out of the queue</source>
            <translation>Quitar de la cola</translation>
        </message>
        <message>
            <source>Picture that is being encoded</source>
            <translation>Imagen que se está codificando</translation>
        </message>
        <message>
            <source>Progress of the export</source>
            <translation>Progreso de la exportación</translation>
        </message>
        <message>
            <source>Stop…</source>
            <translation>Detener…</translation>
        </message>
        <message>
            <source>Details</source>
            <translation>Detalles</translation>
        </message>
        <message>
            <source>Details of the export</source>
            <translation>Detalles de la exportación</translation>
        </message>
        <message>
            <source>Open</source>
            <translation>Abrir</translation>
        </message>
        <message>
            <source>Show in folder</source>
            <translation>Mostrar en la carpeta</translation>
        </message>
        <message>
            <source>Try again</source>
            <translation>Reintentar</translation>
        </message>
        <message>
            <source>Copy report</source>
            <translation>Copiar el informe</translation>
        </message>
        <message>
            <source>Remove</source>
            <translation>Quitar</translation>
        </message>
        <message>
            <source>Jobs</source>
            <translation>Trabajos</translation>
        </message>
        <message>
            <source>Outcome of the export</source>
            <translation>Resultado de la exportación</translation>
        </message>
        <message>
            <source>It begins when the queue is started.</source>
            <translation>Empieza cuando se inicia la cola.</translation>
        </message>
        <message>
            <source>Change…</source>
            <translation>Cambiar…</translation>
        </message>
        <message>
            <source>Shows above what was ordered, to be changed and exported again</source>
            <translation>Muestra arriba lo que se pidió, para cambiarlo y exportarlo de nuevo</translation>
        </message>
        <message>
            <source>Move up</source>
            <translation>Subir</translation>
        </message>
        <message>
            <source>Move down</source>
            <translation>Bajar</translation>
        </message>
        <message>
            <source>Move &amp;up</source>
            <translation>&amp;Subir</translation>
        </message>
        <message>
            <source>Move &amp;down</source>
            <translation>&amp;Bajar</translation>
        </message>
    </context>
    <context>
        <name>Dialog::JobQueue</name>
        <message>
            <source>File</source>
            <translation>Archivo</translation>
        </message>
        <message>
            <source>Preset</source>
            <translation>Preajuste</translation>
        </message>
        <message>
            <source>State</source>
            <translation>Estado</translation>
        </message>
    </context>
    <context>
        <name>Dialog::OutcomeText</name>
        <message>
            <source>The source is not there</source>
            <translation>El origen no está</translation>
        </message>
        <message>
            <source>The source cannot be read</source>
            <translation>No se puede leer el origen</translation>
        </message>
        <message>
            <source>The source is damaged</source>
            <translation>El origen está dañado</translation>
        </message>
        <message>
            <source>The file cannot be written</source>
            <translation>No se puede escribir el archivo</translation>
        </message>
        <message>
            <source>The disk is full</source>
            <translation>El disco está lleno</translation>
        </message>
        <message>
            <source>Writing the file failed</source>
            <translation>Falló la escritura del archivo</translation>
        </message>
        <message>
            <source>An encoder is missing</source>
            <translation>Falta un codificador</translation>
        </message>
        <message>
            <source>The encoder refused its settings</source>
            <translation>El codificador rechazó sus ajustes</translation>
        </message>
        <message>
            <source>Encoding failed</source>
            <translation>Falló la codificación</translation>
        </message>
        <message>
            <source>Preparing the pictures or the sound failed</source>
            <translation>Falló la preparación de la imagen o del sonido</translation>
        </message>
        <message>
            <source>The file's format cannot hold this</source>
            <translation>El formato del archivo no admite esto</translation>
        </message>
        <message>
            <source>There is not enough memory</source>
            <translation>No hay memoria suficiente</translation>
        </message>
        <message>
            <source>The export made no progress</source>
            <translation>La exportación no avanzaba</translation>
        </message>
        <message>
            <source>This cannot be exported</source>
            <translation>Esto no se puede exportar</translation>
        </message>
        <message>
            <source>This is not supported</source>
            <translation>Esto no se admite</translation>
        </message>
        <message>
            <source>The export failed</source>
            <translation>La exportación falló</translation>
        </message>
        <message>
            <source>Check that the file is where it was, and that its disk or share is connected.</source>
            <translation>Compruebe que el archivo sigue donde estaba y que su disco o recurso está conectado.</translation>
        </message>
        <message>
            <source>Export the part before the damage, or get the file anew.</source>
            <translation>Exporte la parte anterior al daño o consiga de nuevo el archivo.</translation>
        </message>
        <message>
            <source>Save the file under another name or in another folder.</source>
            <translation>Guarde el archivo con otro nombre o en otra carpeta.</translation>
        </message>
        <message>
            <source>Make room on the disk, save to another one, or choose a lower quality.</source>
            <translation>Libere espacio, guarde en otro disco o elija menos calidad.</translation>
        </message>
        <message>
            <source>Check the disk, or save to another one.</source>
            <translation>Compruebe el disco o guarde en otro.</translation>
        </message>
        <message>
            <source>Choose another preset, or reset the custom settings.</source>
            <translation>Elija otro preajuste o restablezca los ajustes propios.</translation>
        </message>
        <message>
            <source>Close other programs, or export a smaller picture.</source>
            <translation>Cierre otros programas o exporte una imagen más pequeña.</translation>
        </message>
        <message>
            <source>Check that the disks and shares of source and file answer, then try again.</source>
            <translation>Compruebe que responden los discos y recursos del origen y del archivo, y reintente.</translation>
        </message>
        <message numerus="yes">
            <source>%1, %2 × %3, %n frame(s)</source>
            <translation>
                <numerusform>%1, %2 × %3, %n fotograma</numerusform>
                <numerusform>%1, %2 × %3, %n fotogramas</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1, %2, %n channel(s)</source>
            <translation>
                <numerusform>%1, %2, %n canal</numerusform>
                <numerusform>%1, %2, %n canales</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 long, %2</source>
            <translation>%1 de duración, %2</translation>
        </message>
        <message>
            <source>Made in %1. Read back to its last byte: it is what was ordered.</source>
            <translation>Hecho en %1. Leído hasta el último byte: es lo que se pidió.</translation>
        </message>
        <message>
            <source>%1 is done</source>
            <translation>%1 está listo</translation>
        </message>
        <message>
            <source>Stopped</source>
            <translation>Detenida</translation>
        </message>
        <message>
            <source>Nothing was written.</source>
            <translation>No se escribió nada.</translation>
        </message>
        <message>
            <source>Error:</source>
            <translation>Error:</translation>
        </message>
        <message>
            <source>Preset:</source>
            <translation>Preajuste:</translation>
        </message>
        <message>
            <source>File:</source>
            <translation>Archivo:</translation>
        </message>
        <message>
            <source>Source</source>
            <translation>Origen</translation>
        </message>
        <message>
            <source>Warning</source>
            <translation>Aviso</translation>
        </message>
        <message>
            <source>Note</source>
            <translation>Nota</translation>
        </message>
        <message>
            <source>Made in %1. Read back to its last byte.</source>
            <translation>Hecho en %1. Releído hasta el último byte.</translation>
        </message>
        <message numerus="yes">
            <source>and %n more, in the details</source>
            <translation>
                <numerusform>y uno más, en los detalles</numerusform>
                <numerusform>y %n más, en los detalles</numerusform>
            </translation>
        </message>
    </context>
    <context>
        <name>Dialog::OutputName</name>
        <message>
            <source>%1 (export)</source>
            <comment>a file's name</comment>
            <translation>%1 (exportado)</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PeoplesText</name>
        <message>
            <source>a few seconds</source>
            <translation>unos segundos</translation>
        </message>
        <message numerus="yes">
            <source>about %n second(s)</source>
            <translation>
                <numerusform>aproximadamente %n segundo</numerusform>
                <numerusform>aproximadamente %n segundos</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>about %n minute(s)</source>
            <translation>
                <numerusform>aproximadamente %n minuto</numerusform>
                <numerusform>aproximadamente %n minutos</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>about %n hour(s)</source>
            <translation>
                <numerusform>aproximadamente %n hora</numerusform>
                <numerusform>aproximadamente %n horas</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 frames/s</source>
            <translation>%1 fotogramas/s</translation>
        </message>
        <message>
            <source>%1 kHz</source>
            <translation>%1 kHz</translation>
        </message>
        <message>
            <source>%1 Mbit/s</source>
            <translation>%1 Mbit/s</translation>
        </message>
        <message>
            <source>%1 kbit/s</source>
            <translation>%1 kbit/s</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PresetList</name>
        <message>
            <source>%1, not possible: %2</source>
            <translation>%1, no es posible: %2</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PresetObstacle</name>
        <message>
            <source>%1 does not take %2</source>
            <translation>%1 no admite %2</translation>
        </message>
        <message>
            <source>%1 takes no side below %2 pixels</source>
            <translation>%1 no admite lados de menos de %2 píxeles</translation>
        </message>
        <message>
            <source>The source has no sound</source>
            <translation>El origen no tiene sonido</translation>
        </message>
        <message>
            <source>The source has no picture</source>
            <translation>El origen no tiene imagen</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PresetPane</name>
        <message>
            <source>For&amp;mat:</source>
            <translation>&amp;Formato:</translation>
        </message>
        <message>
            <source>&amp;Search:</source>
            <translation>&amp;Buscar:</translation>
        </message>
        <message>
            <source>Codec, size or name</source>
            <translation>Códec, tamaño o nombre</translation>
        </message>
        <message>
            <source>Presets</source>
            <translation>Preajustes</translation>
        </message>
        <message>
            <source>No preset of this format has these words.</source>
            <translation>Ningún preajuste de este formato contiene esas palabras.</translation>
        </message>
        <message>
            <source>“%1” stays chosen.</source>
            <translation>«%1» sigue elegido.</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PresetText</name>
        <message>
            <source>%1 picture, %2 × %3</source>
            <translation>imagen %1, %2 × %3</translation>
        </message>
        <message>
            <source>%1 picture, up to %2 × %3</source>
            <translation>imagen %1, hasta %2 × %3</translation>
        </message>
        <message>
            <source>, lossless</source>
            <translation>, sin pérdida</translation>
        </message>
        <message>
            <source>, two passes</source>
            <translation>, dos pasadas</translation>
        </message>
        <message>
            <source>%1 sound</source>
            <translation>sonido %1</translation>
        </message>
    </context>
    <context>
        <name>Dialog::RangeStrip</name>
        <message>
            <source>From %1 to %2</source>
            <translation>De %1 a %2</translation>
        </message>
    </context>
    <context>
        <name>Dialog::SettingsPane</name>
        <message>
            <source>Qualit&amp;y:</source>
            <translation>C&amp;alidad:</translation>
        </message>
        <message>
            <source>C&amp;ustom settings</source>
            <translation>Aj&amp;ustes propios</translation>
        </message>
        <message>
            <source>Si&amp;ze:</source>
            <translation>&amp;Tamaño:</translation>
        </message>
        <message>
            <source>Frame &amp;rate:</source>
            <translation>Fotogramas/&amp;s:</translation>
        </message>
        <message>
            <source>Rate &amp;control:</source>
            <translation>&amp;Control de tasa:</translation>
        </message>
        <message>
            <source>Value:</source>
            <translation>Valor:</translation>
        </message>
        <message>
            <source>Quality on the codec's scale</source>
            <translation>Calidad en la escala del códec</translation>
        </message>
        <message>
            <source>Bitrate of the picture</source>
            <translation>Tasa de bits de la imagen</translation>
        </message>
        <message>
            <source> kbit/s</source>
            <translation> kbit/s</translation>
        </message>
        <message>
            <source>as the preset says</source>
            <translation>según el preajuste</translation>
        </message>
        <message>
            <source>Sample ra&amp;te:</source>
            <translation>&amp;Muestreo:</translation>
        </message>
        <message>
            <source>Sound &amp;bitrate:</source>
            <translation>&amp;kbit/s de sonido:</translation>
        </message>
        <message>
            <source>R&amp;eset</source>
            <translation>&amp;Quitar ajustes</translation>
        </message>
        <message>
            <source>Range</source>
            <translation>Intervalo</translation>
        </message>
        <message>
            <source>&amp;Whole</source>
            <translation>T&amp;odo</translation>
        </message>
        <message>
            <source>P&amp;art</source>
            <translation>&amp;Parte</translation>
        </message>
        <message>
            <source>Between mar&amp;kers</source>
            <translation>E&amp;ntre marcas</translation>
        </message>
        <message>
            <source>Range on the timeline</source>
            <translation>Intervalo en la línea de tiempo</translation>
        </message>
        <message>
            <source>Everything is exported, from start to end.</source>
            <translation>Se exporta todo, de principio a fin.</translation>
        </message>
        <message>
            <source>&amp;In point:</source>
            <translation>Punto de &amp;entrada:</translation>
        </message>
        <message>
            <source>Start</source>
            <translation>Inicio</translation>
        </message>
        <message>
            <source>Hours, minutes and seconds, as 1:02:03.5, or frames, as 120f</source>
            <translation>Horas, minutos y segundos, como 1:02:03.5, o fotogramas, como 120f</translation>
        </message>
        <message>
            <source>Out &amp;point:</source>
            <translation>Punto de sa&amp;lida:</translation>
        </message>
        <message>
            <source>End</source>
            <translation>Fin</translation>
        </message>
        <message>
            <source>&amp;First marker:</source>
            <translation>Prim&amp;era marca:</translation>
        </message>
        <message>
            <source>Endin&amp;g marker:</source>
            <translation>Ú&amp;ltima marca:</translation>
        </message>
        <message>
            <source>Wit&amp;h picture</source>
            <translation>Con &amp;vídeo</translation>
        </message>
        <message>
            <source>With soun&amp;d</source>
            <translation>Con soni&amp;do</translation>
        </message>
        <message>
            <source>E&amp;nding:</source>
            <translation>C&amp;ierre:</translation>
        </message>
        <message>
            <source>Fi&amp;le:</source>
            <translation>Arc&amp;hivo:</translation>
        </message>
        <message>
            <source>Sa&amp;ve as…</source>
            <translation>&amp;Guardar como…</translation>
        </message>
        <message>
            <source>as the source</source>
            <translation>como el origen</translation>
        </message>
        <message>
            <source>None</source>
            <translation>Ninguno</translation>
        </message>
        <message>
            <source>As the preset says</source>
            <translation>Según el preajuste</translation>
        </message>
        <message>
            <source>Constant quality</source>
            <translation>Calidad constante</translation>
        </message>
        <message>
            <source>Average bitrate</source>
            <translation>Tasa de bits media</translation>
        </message>
        <message>
            <source>%1 long</source>
            <translation>%1 de duración</translation>
        </message>
        <message>
            <source>Very roughly %1</source>
            <translation>Muy aproximadamente %1</translation>
        </message>
        <message>
            <source>About %1</source>
            <translation>Unos %1</translation>
        </message>
        <message>
            <source>%1 free</source>
            <translation>%1 libres</translation>
        </message>
        <message>
            <source>The folder is not there</source>
            <translation>La carpeta no existe</translation>
        </message>
        <message>
            <source>This may be too much for the disk</source>
            <translation>Puede ser demasiado para el disco</translation>
        </message>
        <message>
            <source>A file of this name is there already</source>
            <translation>Ya hay un archivo con este nombre</translation>
        </message>
        <message>
            <source>Save the export as</source>
            <translation>Guardar la exportación como</translation>
        </message>
        <message>
            <source>Files of this preset (*.%1)</source>
            <translation>Archivos de este preajuste (*.%1)</translation>
        </message>
        <message>
            <source>All files (*)</source>
            <translation>Todos los archivos (*)</translation>
        </message>
        <message>
            <source>Reset the custom settings</source>
            <translation>Restablecer los ajustes propios</translation>
        </message>
        <message>
            <source>Channels:</source>
            <translation>Canales:</translation>
        </message>
        <message>
            <source>First pass:</source>
            <translation>Primera pasada:</translation>
        </message>
        <message>
            <source>Mono</source>
            <translation>Mono</translation>
        </message>
        <message>
            <source>Stereo</source>
            <translation>Estéreo</translation>
        </message>
        <message>
            <source>Quadraphonic</source>
            <translation>Cuadrafónico</translation>
        </message>
        <message>
            <source>Whole pictures</source>
            <translation>Imágenes enteras</translation>
        </message>
        <message>
            <source>Pictures of half the size</source>
            <translation>Imágenes de mitad de tamaño</translation>
        </message>
        <message>
            <source>The folder does not answer</source>
            <translation>La carpeta no responde</translation>
        </message>
        <message>
            <source>This is one of the inputs</source>
            <translation>Esta es una de las entradas</translation>
        </message>
        <message>
            <source>This is a folder; write the name of a file in it</source>
            <translation>Es una carpeta; escriba el nombre de un archivo dentro de ella</translation>
        </message>
    </context>
    <context>
        <name>Dialog::SourceMedia</name>
        <message>
            <source>Start</source>
            <translation>Inicio</translation>
        </message>
        <message>
            <source>End</source>
            <translation>Fin</translation>
        </message>
        <message>
            <source>There is nothing in it to export</source>
            <translation>No contiene nada que exportar</translation>
        </message>
        <message numerus="yes">
            <source>%1 and %n more</source>
            <translation>
                <numerusform>%1 y %n más</numerusform>
                <numerusform>%1 y %n más</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 × %2</source>
            <translation>%1 × %2</translation>
        </message>
        <message>
            <source>no picture</source>
            <translation>sin imagen</translation>
        </message>
        <message>
            <source>no sound</source>
            <translation>sin sonido</translation>
        </message>
        <message>
            <source>Chapter %1</source>
            <translation>Capítulo %1</translation>
        </message>
    </context>
    <context>
        <name>main</name>
        <message>
            <source>Exports media files, or a timeline, from a window.</source>
            <translation>Exporta archivos multimedia, o una línea de tiempo, desde una ventana.</translation>
        </message>
        <message>
            <source>Media files, one after the other, or one timeline.</source>
            <translation>Archivos multimedia, uno tras otro, o una línea de tiempo.</translation>
        </message>
        <message>
            <source>Shows this.</source>
            <translation>Muestra esta ayuda.</translation>
        </message>
        <message>
            <source>Shows the version.</source>
            <translation>Muestra la versión.</translation>
        </message>
    </context>
    <context>
        <name>editorPresets</name>
        <message>
            <source>mp4</source>
            <translation>MP4</translation>
        </message>
        <message>
            <source>web</source>
            <translation>Web</translation>
        </message>
        <message>
            <source>small-files</source>
            <translation>Archivos pequeños</translation>
        </message>
        <message>
            <source>editing</source>
            <translation>Edición</translation>
        </message>
        <message>
            <source>pictures</source>
            <translation>Imágenes</translation>
        </message>
        <message>
            <source>high-dynamic-range</source>
            <translation>Alto rango dinámico</translation>
        </message>
        <message>
            <source>two-pass</source>
            <translation>Dos pasadas</translation>
        </message>
        <message>
            <source>audio</source>
            <translation>Audio</translation>
        </message>
        <message>
            <source>high</source>
            <translation>Alta</translation>
        </message>
        <message>
            <source>medium</source>
            <translation>Media</translation>
        </message>
        <message>
            <source>low</source>
            <translation>Baja</translation>
        </message>
        <message>
            <source>best</source>
            <translation>La mejor</translation>
        </message>
        <message>
            <source>draft</source>
            <translation>Borrador</translation>
        </message>
        <message>
            <source>mp4-h264-2160p</source>
            <translation>MP4 (H.264 y AAC), hasta 2160p</translation>
        </message>
        <message>
            <source>mp4-h264-1440p</source>
            <translation>MP4 (H.264 y AAC), hasta 1440p</translation>
        </message>
        <message>
            <source>mp4-h264-1080p</source>
            <translation>MP4 (H.264 y AAC), hasta 1080p</translation>
        </message>
        <message>
            <source>mp4-h264-720p</source>
            <translation>MP4 (H.264 y AAC), hasta 720p</translation>
        </message>
        <message>
            <source>mp4-h264-480p</source>
            <translation>MP4 (H.264 y AAC), hasta 480p</translation>
        </message>
        <message>
            <source>mp4-h264-source</source>
            <translation>MP4 (H.264 y AAC), tamaño del origen, alta calidad</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p</source>
            <translation>MP4 (HEVC y AAC), hasta 1080p</translation>
        </message>
        <message>
            <source>mp4-mpeg4-720p</source>
            <translation>MP4 (MPEG-4 Visual y AAC), hasta 720p, para reproductores antiguos</translation>
        </message>
        <message>
            <source>webm-vp9-2160p</source>
            <translation>WebM (VP9 y Opus), hasta 2160p</translation>
        </message>
        <message>
            <source>webm-vp9-1080p</source>
            <translation>WebM (VP9 y Opus), hasta 1080p</translation>
        </message>
        <message>
            <source>webm-vp9-720p</source>
            <translation>WebM (VP9 y Opus), hasta 720p</translation>
        </message>
        <message>
            <source>mkv-hevc-2160p</source>
            <translation>Matroska (HEVC y AAC), hasta 2160p</translation>
        </message>
        <message>
            <source>mkv-hevc-1080p</source>
            <translation>Matroska (HEVC y AAC), hasta 1080p</translation>
        </message>
        <message>
            <source>mkv-ffv1-flac</source>
            <translation>Matroska (FFV1 y FLAC), archivo sin pérdida</translation>
        </message>
        <message>
            <source>mov-prores-2160p</source>
            <translation>QuickTime (ProRes 422 HQ y PCM), hasta 2160p</translation>
        </message>
        <message>
            <source>mov-prores-1080p</source>
            <translation>QuickTime (ProRes 422 HQ y PCM), hasta 1080p</translation>
        </message>
        <message>
            <source>mp4-hevc-2160p-hdr</source>
            <translation>MP4 (HEVC 10 bits y AAC), hasta 2160p, conserva el alto rango dinámico</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p-hdr</source>
            <translation>MP4 (HEVC 10 bits y AAC), hasta 1080p, conserva el alto rango dinámico</translation>
        </message>
        <message>
            <source>webm-vp9-2160p-hdr</source>
            <translation>WebM (VP9 10 bits y Opus), hasta 2160p, conserva el alto rango dinámico</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-hdr</source>
            <translation>WebM (VP9 10 bits y Opus), hasta 1080p, conserva el alto rango dinámico</translation>
        </message>
        <message>
            <source>mp4-av1-2160p-hdr</source>
            <translation>MP4 (AV1 10 bits y AAC), hasta 2160p, conserva el alto rango dinámico</translation>
        </message>
        <message>
            <source>mp4-av1-1080p-hdr</source>
            <translation>MP4 (AV1 10 bits y AAC), hasta 1080p, conserva el alto rango dinámico</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-2pass</source>
            <translation>MP4 (H.264 y AAC), hasta 1080p, dos pasadas</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-6mbps-2pass</source>
            <translation>MP4 (H.264 y AAC), hasta 1080p, 6 Mbit/s en dos pasadas</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-constant-2pass</source>
            <translation>MP4 (H.264 y AAC), hasta 1080p, tasa constante en dos pasadas</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p-2pass</source>
            <translation>MP4 (HEVC y AAC), hasta 1080p, dos pasadas</translation>
        </message>
        <message>
            <source>mp4-mpeg4-720p-2pass</source>
            <translation>MP4 (MPEG-4 Visual y AAC), hasta 720p, para reproductores antiguos, dos pasadas</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-2pass</source>
            <translation>WebM (VP9 y Opus), hasta 1080p, dos pasadas</translation>
        </message>
        <message>
            <source>m4a-aac</source>
            <translation>M4A (AAC), solo sonido</translation>
        </message>
        <message>
            <source>mp3</source>
            <translation>MP3, solo sonido</translation>
        </message>
        <message>
            <source>flac</source>
            <translation>FLAC, solo sonido, sin pérdida</translation>
        </message>
        <message>
            <source>wav</source>
            <translation>WAV (PCM), solo sonido, sin pérdida</translation>
        </message>
        <message>
            <source>webm</source>
            <translation>WebM</translation>
        </message>
        <message>
            <source>mov</source>
            <translation>QuickTime</translation>
        </message>
        <message>
            <source>mkv</source>
            <translation>Matroska</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-60fps</source>
            <translation>MP4 (H.264 y AAC), hasta 1080p, 60 fotogramas por segundo</translation>
        </message>
        <message>
            <source>mp4-h264-vertical</source>
            <translation>MP4 (H.264 y AAC), vertical 1080x1920</translation>
        </message>
        <message>
            <source>mp4-h264-square</source>
            <translation>MP4 (H.264 y AAC), cuadrado 1080x1080</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-silent</source>
            <translation>MP4 (H.264), hasta 1080p, solo imagen</translation>
        </message>
        <message>
            <source>mov-h264-2160p</source>
            <translation>QuickTime (H.264 y AAC), hasta 2160p</translation>
        </message>
        <message>
            <source>mov-h264-1080p</source>
            <translation>QuickTime (H.264 y AAC), hasta 1080p</translation>
        </message>
        <message>
            <source>mkv-h264-2160p</source>
            <translation>Matroska (H.264 y AAC), hasta 2160p</translation>
        </message>
        <message>
            <source>mkv-h264-1080p</source>
            <translation>Matroska (H.264 y AAC), hasta 1080p</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p-10bit</source>
            <translation>MP4 (HEVC 10 bits y AAC), hasta 1080p</translation>
        </message>
        <message>
            <source>mkv-hevc-1080p-10bit</source>
            <translation>Matroska (HEVC 10 bits y AAC), hasta 1080p</translation>
        </message>
        <message>
            <source>mp4-av1-2160p</source>
            <translation>MP4 (AV1 y Opus), hasta 2160p</translation>
        </message>
        <message>
            <source>mp4-av1-1080p</source>
            <translation>MP4 (AV1 y Opus), hasta 1080p</translation>
        </message>
        <message>
            <source>webm-av1-2160p</source>
            <translation>WebM (AV1 y Opus), hasta 2160p</translation>
        </message>
        <message>
            <source>webm-av1-1080p</source>
            <translation>WebM (AV1 y Opus), hasta 1080p</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-silent</source>
            <translation>WebM (VP9), hasta 1080p, solo imagen</translation>
        </message>
        <message>
            <source>mov-dnxhd-2160p</source>
            <translation>QuickTime (DNxHR HQ y PCM), hasta 2160p</translation>
        </message>
        <message>
            <source>mov-dnxhd-1080p</source>
            <translation>QuickTime (DNxHR HQ y PCM), hasta 1080p</translation>
        </message>
        <message>
            <source>mov-prores-2160p-4444</source>
            <translation>QuickTime (ProRes 4444 y PCM), hasta 2160p, conserva la transparencia</translation>
        </message>
        <message>
            <source>mov-prores-1080p-4444</source>
            <translation>QuickTime (ProRes 4444 y PCM), hasta 1080p, conserva la transparencia</translation>
        </message>
        <message>
            <source>mov-prores-1080p-silent</source>
            <translation>QuickTime (ProRes 422 HQ), hasta 1080p, solo imagen</translation>
        </message>
        <message>
            <source>opus</source>
            <translation>Opus, solo sonido</translation>
        </message>
        <message>
            <source>ogg-vorbis</source>
            <translation>Ogg (Vorbis), solo sonido</translation>
        </message>
        <message>
            <source>m4a-alac</source>
            <translation>M4A (ALAC), solo sonido, sin pérdida</translation>
        </message>
        <message>
            <source>ac3</source>
            <translation>AC-3, 5.1 canales, solo sonido</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-alpha</source>
            <translation>WebM (VP9 y Opus), hasta 1080p, conserva la transparencia</translation>
        </message>
        <message>
            <source>webp-webp-720p</source>
            <translation>WebP animado, hasta 720p, solo imagen, conserva la transparencia</translation>
        </message>
        <message>
            <source>webp-webp-480p</source>
            <translation>WebP animado, hasta 480p, solo imagen, conserva la transparencia</translation>
        </message>
        <message>
            <source>gif-gif-480p</source>
            <translation>GIF, hasta 480p, solo imagen</translation>
        </message>
        <message>
            <source>gif-gif-240p</source>
            <translation>GIF, hasta 240p, solo imagen</translation>
        </message>
        <message>
            <source>png-sequence</source>
            <translation>Imágenes PNG numeradas</translation>
        </message>
        <message>
            <source>png-sequence-alpha</source>
            <translation>Imágenes PNG numeradas, conserva la transparencia</translation>
        </message>
        <message>
            <source>jpeg-sequence</source>
            <translation>Imágenes JPEG numeradas</translation>
        </message>
        <message>
            <source>own-presets</source>
            <translation>Preajustes propios</translation>
        </message>
        <message>
            <source>demo</source>
            <translation>Demostración</translation>
        </message>
    </context>
    <context>
        <name>ExportCore::ExportRun</name>
        <message>
            <source>The preset is %1, %2</source>
            <translation>El preajuste es %1, %2</translation>
        </message>
        <message>
            <source>The inputs end before the out point, at %1: so does the file</source>
            <translation>Las entradas terminan antes del punto de salida, en %1: el archivo también</translation>
        </message>
        <message>
            <source>There is no sound whose loudness could be changed</source>
            <translation>No hay sonido cuya sonoridad se pueda cambiar</translation>
        </message>
        <message>
            <source> left out: the file has no place for it</source>
            <translation> se omite: el archivo no tiene lugar para ello</translation>
        </message>
        <message>
            <source>The timeline's name is</source>
            <translation>El nombre de la línea de tiempo</translation>
        </message>
        <message>
            <source>The title is</source>
            <translation>El título</translation>
        </message>
        <message>
            <source>Each of the timeline's markers is</source>
            <translation>Cada marcador de la línea de tiempo</translation>
        </message>
        <message>
            <source>Each chapter is</source>
            <translation>Cada capítulo</translation>
        </message>
        <message>
            <source>The timeline's time code is</source>
            <translation>El código de tiempo de la línea de tiempo</translation>
        </message>
        <message>
            <source>The time code is</source>
            <translation>El código de tiempo</translation>
        </message>
        <message>
            <source>Subtitles that show nothing in the range are left out</source>
            <translation>Los subtítulos que no muestran nada en el rango se omiten</translation>
        </message>
        <message>
            <source>None of the inputs has a picture: what is shown is black</source>
            <translation>Ninguna de las entradas tiene imagen: lo que se muestra es negro</translation>
        </message>
        <message>
            <source>None of the inputs has sound: what is heard is silence</source>
            <translation>Ninguna de las entradas tiene sonido: lo que se oye es silencio</translation>
        </message>
        <message>
            <source>The folder of the finished file could not be brought to the disk</source>
            <translation>No se pudo llevar al disco la carpeta del archivo terminado</translation>
        </message>
    </context>
    <context>
        <name>Dialog::Sentence</name>
        <message>
            <source>%1; did you mean %2?</source>
            <translation>%1; ¿quería decir %2?</translation>
        </message>
        <message>
            <source>%1; what comes before can be exported with --out %2</source>
            <translation>%1; lo anterior se puede exportar con el punto de salida %2</translation>
        </message>
        <message>
            <source>%1 (whichever export this comes from, each that runs is ended)</source>
            <translation>%1 (venga de la exportación que venga, se terminan todas las que están en marcha)</translation>
        </message>
        <message>
            <source>Cannot read "%1": %2</source>
            <translation>No se puede leer «%1»: %2</translation>
        </message>
        <message>
            <source>Cannot open "%1": %2</source>
            <translation>No se puede abrir «%1»: %2</translation>
        </message>
        <message>
            <source>Cannot decode "%1": no decoder for %2</source>
            <translation>No se puede decodificar «%1»: no hay decodificador para %2</translation>
        </message>
        <message>
            <source>Cannot write "%1": %2</source>
            <translation>No se puede escribir «%1»: %2</translation>
        </message>
        <message>
            <source>Cannot export "%1" beside other inputs: a timeline is exported alone</source>
            <translation>No se puede exportar «%1» junto a otras entradas: una línea de tiempo se exporta sola</translation>
        </message>
        <message>
            <source>Cannot export "%1": %2</source>
            <translation>No se puede exportar «%1»: %2</translation>
        </message>
        <message>
            <source>Cannot make a file beside "%1": %2</source>
            <translation>No se puede crear un archivo junto a «%1»: %2</translation>
        </message>
        <message>
            <source>Cannot put the finished file at "%1": %2</source>
            <translation>No se puede llevar el archivo terminado a «%1»: %2</translation>
        </message>
        <message>
            <source>Cannot write "%1" to the disk: %2</source>
            <translation>No se puede escribir «%1» en el disco: %2</translation>
        </message>
        <message>
            <source>The unfinished file of "%1" was removed or replaced</source>
            <translation>El archivo sin terminar de «%1» fue eliminado o sustituido</translation>
        </message>
        <message>
            <source>The output has become one of the inputs meanwhile</source>
            <translation>Entretanto, la salida se ha convertido en una de las entradas</translation>
        </message>
        <message>
            <source>The output file "%1" cannot be written: %2</source>
            <translation>No se puede escribir el archivo «%1»: %2</translation>
        </message>
        <message>
            <source>The output file "%1" cannot be created: %2</source>
            <translation>No se puede crear el archivo «%1»: %2</translation>
        </message>
        <message>
            <source>The output file "%1" cannot be closed: %2</source>
            <translation>No se puede cerrar el archivo «%1»: %2</translation>
        </message>
        <message>
            <source>Writing the header of "%1": %2</source>
            <translation>Al escribir la cabecera de «%1»: %2</translation>
        </message>
        <message>
            <source>Writing to "%1": %2</source>
            <translation>Al escribir en «%1»: %2</translation>
        </message>
        <message>
            <source>Completing "%1": %2</source>
            <translation>Al completar «%1»: %2</translation>
        </message>
        <message>
            <source>The file will take %1, but beside "%2" only %3 are free</source>
            <translation>El archivo ocupará %1, pero junto a «%2» solo hay %3 libres</translation>
        </message>
        <message>
            <source>The finished file was checked and found wrong: %1</source>
            <translation>Se comprobó el archivo terminado y es incorrecto: %1</translation>
        </message>
        <message>
            <source>The finished file cannot be read to its end: %1</source>
            <translation>El archivo terminado no se puede leer hasta el final: %1</translation>
        </message>
        <message>
            <source>The finished file cannot be read: %1</source>
            <translation>El archivo terminado no se puede leer: %1</translation>
        </message>
        <message>
            <source>The export did not start within %1: %2</source>
            <translation>La exportación no empezó en %1: %2</translation>
        </message>
        <message>
            <source>The export did not start within %1</source>
            <translation>La exportación no empezó en %1</translation>
        </message>
        <message>
            <source>The export made no progress for %1: %2</source>
            <translation>La exportación no avanzó durante %1: %2</translation>
        </message>
        <message>
            <source>The export made no progress for %1</source>
            <translation>La exportación no avanzó durante %1</translation>
        </message>
        <message>
            <source>Checking the finished file made no progress for %1: %2</source>
            <translation>La comprobación del archivo terminado no avanzó durante %1: %2</translation>
        </message>
        <message>
            <source>The export did not stop within %1: %2</source>
            <translation>La exportación no se detuvo en %1: %2</translation>
        </message>
        <message>
            <source>Opening "%1" does not come to an end</source>
            <translation>La apertura de «%1» no termina</translation>
        </message>
        <message>
            <source>Reading "%1" does not come back</source>
            <translation>La lectura de «%1» no vuelve</translation>
        </message>
        <message>
            <source>Making a file beside "%1" does not come to an end</source>
            <translation>La creación de un archivo junto a «%1» no termina</translation>
        </message>
        <message>
            <source>Encoding, or writing "%1", does not come back</source>
            <translation>La codificación, o la escritura de «%1», no vuelve</translation>
        </message>
        <message>
            <source>The in point %1 lies outside the inputs, which last %2</source>
            <translation>El punto de entrada %1 está fuera de las entradas, que duran %2</translation>
        </message>
        <message>
            <source>Nothing is left to export: the preset "%1" has %2</source>
            <translation>No queda nada que exportar: el preajuste «%1» tiene %2</translation>
        </message>
        <message>
            <source>Cannot load the presets: %1</source>
            <translation>No se pueden cargar los preajustes: %1</translation>
        </message>
        <message>
            <source>Cannot set %1 to "%2": %3</source>
            <translation>No se puede poner %1 en «%2»: %3</translation>
        </message>
        <message>
            <source>Cannot set %1: %2</source>
            <translation>No es posible, %1: %2</translation>
        </message>
        <message>
            <source>size</source>
            <translation>el tamaño</translation>
        </message>
        <message>
            <source>frame-rate</source>
            <translation>la frecuencia de imágenes</translation>
        </message>
        <message>
            <source>bitrate</source>
            <translation>la tasa de bits</translation>
        </message>
        <message>
            <source>quality</source>
            <translation>la calidad</translation>
        </message>
        <message>
            <source>first-pass</source>
            <translation>la primera pasada</translation>
        </message>
        <message>
            <source>sample-rate</source>
            <translation>la frecuencia de muestreo</translation>
        </message>
        <message>
            <source>channels</source>
            <translation>los canales</translation>
        </message>
        <message>
            <source>audio-bitrate</source>
            <translation>la tasa de bits del sonido</translation>
        </message>
        <message>
            <source>quality to %1</source>
            <translation>la calidad en %1</translation>
        </message>
        <message>
            <source>audio-bitrate to %1</source>
            <translation>la tasa de bits del sonido en %1</translation>
        </message>
        <message>
            <source>bitrate to %1</source>
            <translation>la tasa de bits en %1</translation>
        </message>
        <message>
            <source>a width of %1</source>
            <translation>una anchura de %1</translation>
        </message>
        <message>
            <source>a height of %1</source>
            <translation>una altura de %1</translation>
        </message>
        <message>
            <source>a size of %1</source>
            <translation>un tamaño de %1</translation>
        </message>
        <message>
            <source>write pixels, as 1280x720</source>
            <translation>escriba píxeles, como 1280x720</translation>
        </message>
        <message>
            <source>%1 is odd, and encoders need even sides</source>
            <translation>%1 es impar, y los codificadores necesitan lados pares</translation>
        </message>
        <message>
            <source>a picture has at least 2x2 pixels</source>
            <translation>una imagen tiene al menos 2x2 píxeles</translation>
        </message>
        <message>
            <source>no side is longer than %1 pixels</source>
            <translation>ningún lado es mayor de %1 píxeles</translation>
        </message>
        <message>
            <source>the preset "%1" is for pictures up to %2</source>
            <translation>el preajuste «%1» es para imágenes de hasta %2</translation>
        </message>
        <message>
            <source>%1 takes no side below %2</source>
            <translation>%1 no admite lados menores de %2</translation>
        </message>
        <message>
            <source>%1 is too small for %2</source>
            <translation>%1 es demasiado pequeño para %2</translation>
        </message>
        <message>
            <source>write frames a second, as 25, 29.97 or 30000/1001, film, pal, ntsc, ntsc-film or source</source>
            <translation>escriba imágenes por segundo, como 25, 29.97 o 30000/1001, film, pal, ntsc, ntsc-film o source</translation>
        </message>
        <message>
            <source>frame rates go from 1 to %1</source>
            <translation>las frecuencias van de 1 a %1</translation>
        </message>
        <message>
            <source>%1 does not take %2, only %3</source>
            <translation>%1 no admite %2, solo %3</translation>
        </message>
        <message>
            <source>%1 does not take %2</source>
            <translation>%1 no admite %2</translation>
        </message>
        <message>
            <source>%1 takes %2 to %3 bit/s</source>
            <translation>%1 admite de %2 a %3 bit/s</translation>
        </message>
        <message>
            <source>%1 takes %2 bit/s</source>
            <translation>%1 admite %2 bit/s</translation>
        </message>
        <message>
            <source>%1 takes whole numbers</source>
            <translation>%1 admite números enteros</translation>
        </message>
        <message>
            <source>%1 takes %2 to %3</source>
            <translation>%1 admite de %2 a %3</translation>
        </message>
        <message>
            <source>write bits a second, as 2500000, 2500k or 2.5M</source>
            <translation>escriba bits por segundo, como 2500000, 2500k o 2.5M</translation>
        </message>
        <message>
            <source>bitrates go from 1 to %1 bit/s</source>
            <translation>las tasas van de 1 a %1 bit/s</translation>
        </message>
        <message>
            <source>the folder "%1" may not be listed: %2</source>
            <translation>no se permite ver el contenido de la carpeta «%1»: %2</translation>
        </message>
        <message>
            <source>the folder "%1": %2</source>
            <translation>la carpeta «%1»: %2</translation>
        </message>
        <message>
            <source>"%1" is not a folder</source>
            <translation>«%1» no es una carpeta</translation>
        </message>
        <message>
            <source>the preset "%1" writes .%2, not .%3; no preset writes that</source>
            <translation>el preajuste «%1» escribe .%2, no .%3; ninguno lo hace</translation>
        </message>
        <message>
            <source>it holds neither picture nor sound that can be decoded (%1)</source>
            <translation>no contiene imagen ni sonido que se pueda decodificar (%1)</translation>
        </message>
        <message>
            <source>it holds neither picture nor sound that can be decoded</source>
            <translation>no contiene imagen ni sonido que se pueda decodificar</translation>
        </message>
        <message>
            <source>it takes more memory than there is</source>
            <translation>necesita más memoria de la que hay</translation>
        </message>
        <message>
            <source>its pictures or sound stand in another file, which it names</source>
            <translation>su imagen o su sonido están en otro archivo, que ella nombra</translation>
        </message>
        <message>
            <source>it is an animated WebP file, a kind that is written and not read</source>
            <translation>es un archivo WebP animado, que se escribe pero no se lee</translation>
        </message>
        <message>
            <source>&quot;%1&quot; would become larger than 4 GiB, which a WebP file cannot be: a shorter range, a lower quality or smaller pictures fit into one</source>
            <translation>«%1» superaría los 4 GiB, lo que un archivo WebP no permite: caben un intervalo más corto, una calidad menor o imágenes más pequeñas</translation>
        </message>
        <message>
            <source>it is a folder</source>
            <translation>es una carpeta</translation>
        </message>
        <message>
            <source>it is a pipe</source>
            <translation>es una tubería</translation>
        </message>
        <message>
            <source>it is a socket</source>
            <translation>es un socket</translation>
        </message>
        <message>
            <source>it is a device</source>
            <translation>es un dispositivo</translation>
        </message>
        <message>
            <source>it is not a regular file</source>
            <translation>no es un archivo normal</translation>
        </message>
        <message>
            <source>it is empty</source>
            <translation>está vacío</translation>
        </message>
        <message>
            <source>it is one of the inputs</source>
            <translation>es una de las entradas</translation>
        </message>
        <message>
            <source>it is one of the timeline's media</source>
            <translation>es uno de los medios de la línea de tiempo</translation>
        </message>
        <message>
            <source>it exists already (--overwrite replaces it)</source>
            <translation>ya existe</translation>
        </message>
        <message>
            <source>it does not name a file</source>
            <translation>no nombra un archivo</translation>
        </message>
        <message>
            <source>it is a link that leads nowhere</source>
            <translation>es un enlace que no lleva a ninguna parte</translation>
        </message>
        <message>
            <source>No such file or directory</source>
            <translation>No existe el archivo o la carpeta</translation>
        </message>
        <message>
            <source>Permission denied</source>
            <translation>Permiso denegado</translation>
        </message>
        <message>
            <source>Read-only file system</source>
            <translation>Sistema de archivos de solo lectura</translation>
        </message>
        <message>
            <source>No space left on device</source>
            <translation>No queda espacio en el dispositivo</translation>
        </message>
        <message>
            <source>Disk quota exceeded</source>
            <translation>Cuota de disco superada</translation>
        </message>
        <message>
            <source>File too large</source>
            <translation>El archivo es demasiado grande</translation>
        </message>
        <message>
            <source>File name too long</source>
            <translation>El nombre de archivo es demasiado largo</translation>
        </message>
        <message>
            <source>Input/output error</source>
            <translation>Error de entrada/salida</translation>
        </message>
        <message>
            <source>Cannot allocate memory</source>
            <translation>No se puede asignar memoria</translation>
        </message>
        <message>
            <source>Invalid data found when processing input</source>
            <translation>Los datos no son válidos</translation>
        </message>
        <message>
            <source>End of file</source>
            <translation>Fin del archivo</translation>
        </message>
        <message>
            <source>"%1" is damaged at %2: %3</source>
            <translation>«%1» está dañado en %2: %3</translation>
        </message>
        <message>
            <source>"%1" cannot be put on the timeline: it has no length</source>
            <translation>«%1» no se puede poner en la línea de tiempo: no tiene duración</translation>
        </message>
        <message>
            <source>"%1": %2</source>
            <translation>«%1»: %2</translation>
        </message>
        <message>
            <source>left out: %1</source>
            <translation>se omite: %1</translation>
        </message>
        <message>
            <source>%1 picture track (%2)</source>
            <translation>%1 pista de imagen (%2)</translation>
        </message>
        <message>
            <source>%1 picture tracks (%2)</source>
            <translation>%1 pistas de imagen (%2)</translation>
        </message>
        <message>
            <source>%1 sound track (%2)</source>
            <translation>%1 pista de sonido (%2)</translation>
        </message>
        <message>
            <source>%1 sound tracks (%2)</source>
            <translation>%1 pistas de sonido (%2)</translation>
        </message>
        <message>
            <source>%1 subtitle track (%2)</source>
            <translation>%1 pista de subtítulos (%2)</translation>
        </message>
        <message>
            <source>%1 subtitle tracks (%2)</source>
            <translation>%1 pistas de subtítulos (%2)</translation>
        </message>
        <message>
            <source>%1 data track (%2)</source>
            <translation>%1 pista de datos (%2)</translation>
        </message>
        <message>
            <source>%1 data tracks (%2)</source>
            <translation>%1 pistas de datos (%2)</translation>
        </message>
        <message>
            <source>%1 attached picture (%2)</source>
            <translation>%1 imagen adjunta (%2)</translation>
        </message>
        <message>
            <source>%1 attached pictures (%2)</source>
            <translation>%1 imágenes adjuntas (%2)</translation>
        </message>
        <message>
            <source>%1 attachment (%2)</source>
            <translation>%1 archivo adjunto (%2)</translation>
        </message>
        <message>
            <source>%1 attachments (%2)</source>
            <translation>%1 archivos adjuntos (%2)</translation>
        </message>
        <message>
            <source>%1 chapter</source>
            <translation>%1 capítulo</translation>
        </message>
        <message>
            <source>%1 chapters</source>
            <translation>%1 capítulos</translation>
        </message>
        <message>
            <source>tag (%1)</source>
            <translation>etiqueta (%1)</translation>
        </message>
        <message>
            <source>tags (%1)</source>
            <translation>etiquetas (%1)</translation>
        </message>
        <message>
            <source>title</source>
            <translation>título</translation>
        </message>
        <message>
            <source>tags</source>
            <translation>etiquetas</translation>
        </message>
        <message>
            <source>Titles of chapters are cut off: the file has no place for such long ones</source>
            <translation>Los títulos de los capítulos se acortan: el archivo no tiene lugar para títulos tan largos</translation>
        </message>
        <message>
            <source>what is missing is black, or what lies on lower tracks where there is something, and silent</source>
            <translation>lo que falta queda en negro, o muestra lo que hay en pistas inferiores, y en silencio</translation>
        </message>
        <message>
            <source>has no picture: what is shown there is black</source>
            <translation>no tiene imagen: ahí se muestra negro</translation>
        </message>
        <message>
            <source>has no sound: what is heard there is silence</source>
            <translation>no tiene sonido: ahí se oye silencio</translation>
        </message>
        <message>
            <source>roughly %1</source>
            <translation>aproximadamente %1</translation>
        </message>
        <message>
            <source>about %1</source>
            <translation>unos %1</translation>
        </message>
        <message>
            <source>The first pass looks at whole pictures in place of halves: %1</source>
            <translation>La primera pasada examina imágenes enteras en lugar de mitades: %1</translation>
        </message>
        <message>
            <source>a side of the picture has less than %1 pixels</source>
            <translation>un lado de la imagen tiene menos de %1 píxeles</translation>
        </message>
        <message>
            <source>nobody knows how long the film is</source>
            <translation>no se sabe cuánto dura la película</translation>
        </message>
        <message>
            <source>the film is shorter than %1 seconds</source>
            <translation>la película dura menos de %1 segundos</translation>
        </message>
        <message>
            <source>%1 with its options takes no statistics of smaller ones</source>
            <translation>%1 con sus opciones no acepta estadísticas de imágenes más pequeñas</translation>
        </message>
        <message>
            <source>%1 language is left out: the inputs' differ</source>
            <translation>Se omite el idioma %1: los de las entradas difieren</translation>
        </message>
        <message>
            <source>%1 language, %2, is left out: the file has no place for it</source>
            <translation>Se omite el idioma %1, %2: el archivo no tiene lugar para él</translation>
        </message>
        <message>
            <source>The picture's</source>
            <translation>de la imagen</translation>
        </message>
        <message>
            <source>The sound's</source>
            <translation>del sonido</translation>
        </message>
        <message>
            <source>%1; presets that do: %2</source>
            <translation>%1; lo hacen: %2</translation>
        </message>
        <message>
            <source>the preset &quot;%1&quot; writes .%2, not .%3</source>
            <translation>el preajuste «%1» escribe .%2, no .%3</translation>
        </message>
        <message>
            <source>%1; choose one of the preset's qualities (--quality %2)</source>
            <translation>%1; elija una de las calidades del preajuste: %2</translation>
        </message>
        <message>
            <source>pictures of these names exist already, &quot;%1&quot; to begin with (--overwrite replaces them)</source>
            <translation>ya existen imágenes con estos nombres, la primera «%1»</translation>
        </message>
        <message>
            <source>and %1 more (validate tells them all)</source>
            <translation>y %1 más</translation>
        </message>
        <message>
            <source>“%1”</source>
            <comment>a preset</comment>
            <translation>«%1»</translation>
        </message>
        <message>
            <source>make it first</source>
            <translation>créela primero</translation>
        </message>
        <message>
            <source>name the files in it</source>
            <translation>indique los archivos que contiene</translation>
        </message>
        <message>
            <source>name a file in it</source>
            <translation>indique un archivo dentro</translation>
        </message>
        <message>
            <source>write what comes out of it to a file</source>
            <translation>escriba en un archivo lo que sale de ella</translation>
        </message>
        <message>
            <source>it is not a media file, or its beginning is damaged</source>
            <translation>no es un archivo multimedia, o su comienzo está dañado</translation>
        </message>
        <message>
            <source>its index is missing: the recording was never finished, or copied in part</source>
            <translation>le falta el índice: la grabación nunca se terminó o se copió solo en parte</translation>
        </message>
        <message>
            <source>it is not a media file</source>
            <translation>no es un archivo multimedia</translation>
        </message>
        <message>
            <source>A picture could not be decoded: %1</source>
            <translation>No se pudo decodificar una imagen: %1</translation>
        </message>
        <message>
            <source>A block of sound could not be decoded: %1</source>
            <translation>No se pudo decodificar un bloque de sonido: %1</translation>
        </message>
        <message>
            <source>its picture could not be decoded: %1</source>
            <translation>no se pudo decodificar su imagen: %1</translation>
        </message>
        <message>
            <source>%1, clip "%2": %3 (/%4)</source>
            <translation>%1, clip «%2»: %3 (/%4)</translation>
        </message>
        <message>
            <source>%1, clip: %2 (/%3)</source>
            <translation>%1, clip: %2 (/%3)</translation>
        </message>
        <message>
            <source>%1, transition: %2 (/%3)</source>
            <translation>%1, transición: %2 (/%3)</translation>
        </message>
        <message>
            <source>%1, stack: %2 (/%3)</source>
            <translation>%1, pila: %2 (/%3)</translation>
        </message>
        <message>
            <source>%1, track: %2 (/%3)</source>
            <translation>%1, pista: %2 (/%3)</translation>
        </message>
        <message>
            <source>%1, clip "%2": %3</source>
            <translation>%1, clip «%2»: %3</translation>
        </message>
        <message>
            <source>%1, transition "%2": %3</source>
            <translation>%1, transición «%2»: %3</translation>
        </message>
        <message>
            <source>%1, stack "%2": %3</source>
            <translation>%1, pila «%2»: %3</translation>
        </message>
        <message>
            <source>%1, track "%2": %3</source>
            <translation>%1, pista «%2»: %3</translation>
        </message>
        <message>
            <source>stack</source>
            <translation>pila</translation>
        </message>
        <message>
            <source>track</source>
            <translation>pista</translation>
        </message>
        <message>
            <source>the effect "%1" is not known and is left out</source>
            <translation>el efecto «%1» no se conoce y se omite</translation>
        </message>
        <message>
            <source>it has no pictures, and its place in a track of pictures stays empty</source>
            <translation>no tiene imágenes, y su lugar en una pista de imagen queda vacío</translation>
        </message>
        <message>
            <source>it has no sound, and its place in a sound track stays silent</source>
            <translation>no tiene sonido, y su lugar en una pista de sonido queda en silencio</translation>
        </message>
        <message>
            <source>transitions of the type "%1" are made as dissolves</source>
            <translation>las transiciones del tipo «%1» se hacen como fundidos</translation>
        </message>
        <message>
            <source>its media "%1" lasts %2</source>
            <translation>su archivo «%1» dura %2</translation>
        </message>
        <message>
            <source>its media "%1" cannot be opened: %2</source>
            <translation>su archivo «%1» no se puede abrir: %2</translation>
        </message>
        <message>
            <source>its media "%1" has no pictures</source>
            <translation>su archivo «%1» no tiene imágenes</translation>
        </message>
        <message>
            <source>its media "%1" has no sound</source>
            <translation>su archivo «%1» no tiene sonido</translation>
        </message>
        <message>
            <source>the clip goes %1 before its beginning and %2</source>
            <translation>el clip empieza %1 antes que él y %2</translation>
        </message>
        <message>
            <source>the clip goes %1 beyond it and %2</source>
            <translation>el clip lo sobrepasa en %1 y %2</translation>
        </message>
        <message>
            <source>the transition before the clip goes %1 before its beginning and %2</source>
            <translation>la transición anterior al clip empieza %1 antes que él y %2</translation>
        </message>
        <message>
            <source>the transition before the clip goes %1 beyond it and %2</source>
            <translation>la transición anterior al clip lo sobrepasa en %1 y %2</translation>
        </message>
        <message>
            <source>the transition behind the clip goes %1 before its beginning and %2</source>
            <translation>la transición posterior al clip empieza %1 antes que él y %2</translation>
        </message>
        <message>
            <source>the transition behind the clip goes %1 beyond it and %2</source>
            <translation>la transición posterior al clip lo sobrepasa en %1 y %2</translation>
        </message>
        <message>
            <source>holds the first picture for %1</source>
            <translation>mantiene la primera imagen durante %1</translation>
        </message>
        <message>
            <source>holds the last picture for %1</source>
            <translation>mantiene la última imagen durante %1</translation>
        </message>
        <message>
            <source>shows nothing but the first picture</source>
            <translation>solo muestra la primera imagen</translation>
        </message>
        <message>
            <source>shows nothing but the last picture</source>
            <translation>solo muestra la última imagen</translation>
        </message>
        <message>
            <source>is silent for %1</source>
            <translation>queda en silencio durante %1</translation>
        </message>
        <message>
            <source>is silent throughout</source>
            <translation>queda siempre en silencio</translation>
        </message>
        <message>
            <source>stack "%1"</source>
            <translation>pila «%1»</translation>
        </message>
        <message>
            <source>track "%1"</source>
            <translation>pista «%1»</translation>
        </message>
        <message>
            <source>the media "%1" %2</source>
            <translation>el archivo «%1» %2</translation>
        </message>
        <message>
            <source>its media %1</source>
            <translation>su archivo %1</translation>
        </message>
        <message>
            <source>is not there</source>
            <translation>no está</translation>
        </message>
        <message>
            <source>is no plain file</source>
            <translation>no es un archivo normal</translation>
        </message>
        <message>
            <source>stands on another machine</source>
            <translation>está en otro equipo</translation>
        </message>
        <message>
            <source>stands at a path of Windows</source>
            <translation>está en una ruta de Windows</translation>
        </message>
        <message>
            <source>is not named</source>
            <translation>no tiene nombre</translation>
        </message>
        <message>
            <source>is said to be missing</source>
            <translation>falta, según la línea de tiempo</translation>
        </message>
        <message>
            <source>lasts %1</source>
            <translation>dura %1</translation>
        </message>
        <message>
            <source>it lies between two frames and is not seen</source>
            <translation>está entre dos fotogramas y no se ve</translation>
        </message>
        <message>
            <source>%1: smaller pictures, or fewer exports at a time, take less</source>
            <translation>%1: imágenes más pequeñas, o menos exportaciones a la vez, necesitan menos</translation>
        </message>
        <message>
            <source>There is too little memory</source>
            <translation>No hay suficiente memoria</translation>
        </message>
        <message>
            <source>%1 gets too little memory for pictures of %2, each of which takes up to %3 MiB in one piece</source>
            <translation>%1 no obtiene suficiente memoria para imágenes de %2, cada una de las cuales ocupa hasta %3 MiB seguidos</translation>
        </message>
        <message>
            <source>%1 gets too little memory for pictures of %2</source>
            <translation>%1 no obtiene suficiente memoria para imágenes de %2</translation>
        </message>
        <message>
            <source>Pixels that are not square become square, %1 as %2: viewers of such files know no others</source>
            <translation>Los píxeles que no son cuadrados pasan a serlo, %1 como %2: los visores de estos archivos no conocen otros</translation>
        </message>
        <message>
            <source>its sound has a gap of %1 at %2, filled with silence</source>
            <translation>su sonido tiene un hueco de %1 en %2, relleno de silencio</translation>
        </message>
        <message>
            <source>its sound has more gaps, all filled with silence</source>
            <translation>su sonido tiene más huecos, todos rellenos de silencio</translation>
        </message>
        <message>
            <source>its sound changes to %1 on the way; it is converted to %2, as it begins</source>
            <translation>su sonido cambia a %1 por el camino; se convierte a %2, como empieza</translation>
        </message>
        <message>
            <source>A damaged picture was concealed</source>
            <translation>Se disimuló una imagen dañada</translation>
        </message>
        <message>
            <source>Timestamps run backwards; pictures are left out</source>
            <translation>Las marcas de tiempo van hacia atrás; se omiten imágenes</translation>
        </message>
        <message>
            <source>Reading ended early: %1</source>
            <translation>La lectura terminó antes de tiempo: %1</translation>
        </message>
        <message>
            <source>Sound is missing at the end; silence stands in for it</source>
            <translation>Falta sonido al final; lo reemplaza el silencio</translation>
        </message>
        <message>
            <source>Sound is missing; silence stands in for it</source>
            <translation>Falta sonido; lo reemplaza el silencio</translation>
        </message>
        <message>
            <source>"%1" is scaled down to the size of the first pictures, %2</source>
            <translation>«%1» se reduce al tamaño de las primeras imágenes, %2</translation>
        </message>
        <message>
            <source>"%1" and %2 more are scaled down to the size of the first pictures, %3</source>
            <translation>«%1» y %2 más se reducen al tamaño de las primeras imágenes, %3</translation>
        </message>
        <message>
            <source>--set size=WxH chooses another</source>
            <translation>en los ajustes propios se puede elegir otro</translation>
        </message>
        <message>
            <source>--set size=%1 chooses another</source>
            <translation>en los ajustes propios se puede elegir otro, como %1</translation>
        </message>
        <message>
            <source>"%1" is shown at the rate of the first pictures, %2 instead of %3 frames a second</source>
            <translation>«%1» se muestra con la frecuencia de las primeras imágenes, %2 en lugar de %3 imágenes por segundo</translation>
        </message>
        <message>
            <source>"%1" and %2 more are shown at the rate of the first pictures, %3 instead of up to %4 frames a second</source>
            <translation>«%1» y %2 más se muestran con la frecuencia de las primeras imágenes, %3 en lugar de hasta %4 imágenes por segundo</translation>
        </message>
        <message>
            <source>--set frame-rate=RATE chooses another</source>
            <translation>en los ajustes propios se puede elegir otra</translation>
        </message>
        <message>
            <source>--set frame-rate=%1 chooses another</source>
            <translation>en los ajustes propios se puede elegir otra, como %1</translation>
        </message>
        <message>
            <source>"%1" is mixed down to the channels of the first sound, %2</source>
            <translation>«%1» se mezcla en los canales del primer sonido, %2</translation>
        </message>
        <message>
            <source>"%1" and %2 more are mixed down to the channels of the first sound, %3</source>
            <translation>«%1» y %2 más se mezclan en los canales del primer sonido, %3</translation>
        </message>
        <message>
            <source>--set channels=%1 chooses others</source>
            <translation>en los ajustes propios se pueden elegir otros, como %1</translation>
        </message>
        <message>
            <source>variable frame rate</source>
            <translation>frecuencia de imágenes variable</translation>
        </message>
        <message>
            <source>shown at %1 frames a second</source>
            <translation>se muestra a %1 imágenes por segundo</translation>
        </message>
        <message>
            <source>which leaves out %1 of its %2 pictures</source>
            <translation>lo que omite %1 de sus %2 imágenes</translation>
        </message>
        <message>
            <source>which leaves out %1 of the first %2 pictures</source>
            <translation>lo que omite %1 de las primeras %2 imágenes</translation>
        </message>
        <message>
            <source>which leaves out pictures</source>
            <translation>lo que omite imágenes</translation>
        </message>
        <message>
            <source>the file does not say when most of its pictures are shown, nor how many a second; both are reckoned, and some pictures may be missing</source>
            <translation>el archivo no dice cuándo se muestran la mayoría de sus imágenes ni cuántas por segundo; ambas cosas se calculan, y pueden faltar algunas imágenes</translation>
        </message>
        <message>
            <source>pictures of %1 are encoded without their last column or line, as %2</source>
            <translation>las imágenes de %1 se codifican sin su última columna o línea, como %2</translation>
        </message>
        <message>
            <source>pictures of %1 are encoded as %2: %3</source>
            <translation>las imágenes en %1 se codifican como %2: %3</translation>
        </message>
        <message>
            <source>%1 bits became %2</source>
            <translation>%1 bits pasaron a %2</translation>
        </message>
        <message>
            <source>floating point became %1</source>
            <translation>la coma flotante pasó a %1 bits</translation>
        </message>
        <message>
            <source>colour became gray</source>
            <translation>el color pasó a gris</translation>
        </message>
        <message>
            <source>colour of %1 became %2</source>
            <translation>el color de %1 pasó a %2</translation>
        </message>
        <message>
            <source>the sensor's mosaic became pixels</source>
            <translation>el mosaico del sensor pasó a píxeles</translation>
        </message>
        <message>
            <source>transparency was left out</source>
            <translation>se omite la transparencia</translation>
        </message>
        <message>
            <source>over black</source>
            <translation>sobre negro</translation>
        </message>
        <message>
            <source>its mastering display or light levels are not the ones that the export tells, which are those of all clips together</source>
            <translation>su pantalla de masterización o sus niveles de luz no son los que indica la exportación, que son los de todos los clips juntos</translation>
        </message>
        <message>
            <source>does not fully tell its colour, taken for %1</source>
            <translation>no indica del todo su color, se toma por %1</translation>
        </message>
        <message>
            <source>colours converted from %1 to %2</source>
            <translation>colores convertidos de %1 a %2</translation>
        </message>
        <message>
            <source>high dynamic range (%1, up to %2 cd/m2), tone-mapped to %3 (mobius curve)</source>
            <translation>alto rango dinámico (%1, hasta %2 cd/m²), llevado a %3 por mapeo de tonos (curva mobius)</translation>
        </message>
        <message>
            <source>standard dynamic range, placed in %1 with its white at %2</source>
            <translation>rango dinámico estándar, situado en %1 con su blanco en %2</translation>
        </message>
        <message>
            <source>%1 left out: its pictures are shown as they are without it</source>
            <translation>se omite %1: sus imágenes se muestran como son sin ello</translation>
        </message>
        <message>
            <source>its pictures change to %1 on the way; they are fitted like those of %2 with which it begins</source>
            <translation>sus imágenes cambian a %1 por el camino; se ajustan como las de %2 con las que empieza</translation>
        </message>
        <message>
            <source>interlaced (%1), deinterlaced to a picture for each field</source>
            <translation>entrelazado (%1), desentrelazado a una imagen por campo</translation>
        </message>
        <message>
            <source>interlaced (%1), deinterlaced</source>
            <translation>entrelazado (%1), desentrelazado</translation>
        </message>
        <message>
            <source>top field first</source>
            <translation>campo superior primero</translation>
        </message>
        <message>
            <source>bottom field first</source>
            <translation>campo inferior primero</translation>
        </message>
        <message>
            <source>coded field by field; each field is shown as a picture of its own</source>
            <translation>codificado campo por campo; cada campo se muestra como una imagen propia</translation>
        </message>
        <message>
            <source>its pictures are to be turned by %1 degrees, and are turned by %2</source>
            <translation>sus imágenes deben girarse %1 grados, y se giran %2</translation>
        </message>
        <message>
            <source>begins without a keyframe: what lies before the first picture that can be decoded, %1, is left out</source>
            <translation>empieza sin fotograma clave: lo anterior a la primera imagen que se puede decodificar, %1, se omite</translation>
        </message>
        <message>
            <source>of its %1 pictures %2 is missing, "%3" to begin with</source>
            <translation>de sus %1 imágenes falta %2, «%3»</translation>
        </message>
        <message>
            <source>of its %1 pictures %2 are missing, "%3" to begin with</source>
            <translation>de sus %1 imágenes faltan %2, la primera «%3»</translation>
        </message>
        <message>
            <source>pictures of it are missing, "%1" to begin with</source>
            <translation>faltan imágenes, la primera «%1»</translation>
        </message>
        <message>
            <source>the one before, or else the next one, stands in each one's place</source>
            <translation>en el lugar de cada una va la anterior o, si no la hay, la siguiente</translation>
        </message>
        <message>
            <source>black stands in each one's place</source>
            <translation>en el lugar de cada una va negro</translation>
        </message>
        <message>
            <source>not all its pictures are alike: "%1" is %2</source>
            <translation>no todas sus imágenes son iguales: «%1» es %2</translation>
        </message>
        <message>
            <source>all are brought to the first one's size and pixel format, %1</source>
            <translation>todas se llevan al tamaño y al formato de píxel de la primera, %1</translation>
        </message>
        <message>
            <source>the timestamps of its sound drift away from its samples; it is stretched to follow them</source>
            <translation>las marcas de tiempo de su sonido se alejan de sus muestras; se estira para seguirlas</translation>
        </message>
        <message>
            <source>many packets of its sound have one time; they follow each other</source>
            <translation>muchos paquetes de su sonido tienen la misma hora; van uno tras otro</translation>
        </message>
        <message>
            <source>the file does not say what the sound's encoder put in front: the sound may be up to %1 late</source>
            <translation>el archivo no dice qué puso delante el codificador del sonido: el sonido puede llegar hasta %1 tarde</translation>
        </message>
        <message>
            <source>the file does not say what the sound's encoder put in front: %1 are taken for that, and left out</source>
            <translation>el archivo no dice qué puso delante el codificador del sonido: se toman %1 por ello y se omiten</translation>
        </message>
        <message>
            <source>its edit list changes the speed of %1, or holds it; that is not followed, and parts may be missing or come twice</source>
            <translation>su lista de edición cambia la velocidad (%1) o la detiene; eso no se sigue, y puede faltar o repetirse alguna parte</translation>
        </message>
        <message>
            <source>its edit list has a pause in %1; that is not followed, and something else may come in its place</source>
            <translation>su lista de edición tiene una pausa (%1); eso no se sigue, y en su lugar puede venir otra cosa</translation>
        </message>
        <message>
            <source>its picture</source>
            <translation>imagen</translation>
        </message>
        <message>
            <source>its sound</source>
            <translation>sonido</translation>
        </message>
        <message>
            <source>its samples in floating point became integers of %1 bits, which cut off what lies above full scale</source>
            <translation>sus muestras en coma flotante pasaron a enteros de %1 bits, lo que recorta lo que supera el nivel máximo</translation>
        </message>
        <message>
            <source>the %1 bits of each sample became %2</source>
            <translation>los %1 bits de cada muestra pasaron a %2</translation>
        </message>
        <message>
            <source>sound of %1 is encoded as %2 that do not say where they are heard</source>
            <translation>el sonido (%1) se codifica como %2 que no dicen dónde se oyen</translation>
        </message>
        <message>
            <source>sound of %1 is encoded as %2</source>
            <translation>el sonido (%1) se codifica como %2</translation>
        </message>
        <message>
            <source>%1 that do not say where they are heard are encoded as %2</source>
            <translation>%1 que no dicen dónde se oyen se codifican como %2</translation>
        </message>
        <message>
            <source>where it runs backwards it is silent</source>
            <translation>donde va hacia atrás queda en silencio</translation>
        </message>
        <message>
            <source>where it stands still it is silent</source>
            <translation>donde está detenido queda en silencio</translation>
        </message>
        <message>
            <source>time code</source>
            <translation>código de tiempo</translation>
        </message>
        <message>
            <source>its time code is the file's, which runs on where this medium comes again</source>
            <translation>su código de tiempo es el del archivo, que sigue corriendo donde este medio vuelve a aparecer</translation>
        </message>
        <message>
            <source>%1 picture tracks</source>
            <translation>%1 pistas de imagen</translation>
        </message>
        <message>
            <source>%1 sound tracks</source>
            <translation>%1 pistas de sonido</translation>
        </message>
        <message>
            <source>%1 subtitle tracks</source>
            <translation>%1 pistas de subtítulos</translation>
        </message>
        <message>
            <source>%1 data tracks</source>
            <translation>%1 pistas de datos</translation>
        </message>
        <message>
            <source>%1 attached pictures</source>
            <translation>%1 imágenes adjuntas</translation>
        </message>
        <message>
            <source>%1 language, %2, is told as %3</source>
            <translation>El idioma %1, %2, se indica como %3</translation>
        </message>
        <message>
            <source>%1 title is left out: the inputs' differ</source>
            <translation>Se omite el título %1: los de las entradas difieren</translation>
        </message>
        <message>
            <source>%1 title, "%2", is left out: the file has no place for it</source>
            <translation>Se omite el título %1, «%2»: el archivo no tiene lugar para él</translation>
        </message>
        <message>
            <source>Sound track %1's</source>
            <translation>de la pista de sonido %1</translation>
        </message>
        <message>
            <source>The subtitles'</source>
            <translation>de los subtítulos</translation>
        </message>
        <message>
            <source>The subtitles' titles are left out: the inputs' differ</source>
            <translation>Se omiten los títulos de los subtítulos: los de las entradas difieren</translation>
        </message>
        <message>
            <source>Styles of subtitles are left out: the inputs' differ</source>
            <translation>Se omiten los estilos de los subtítulos: los de las entradas difieren</translation>
        </message>
        <message>
            <source>Styles of subtitles are left out: the file has no place for them</source>
            <translation>Se omiten los estilos de los subtítulos: el archivo no tiene lugar para ellos</translation>
        </message>
        <message>
            <source>Colours of subtitles are left out: the file has no place for them</source>
            <translation>Se omiten los colores de los subtítulos: el archivo no tiene lugar para ellos</translation>
        </message>
        <message>
            <source>Fonts of subtitles and their sizes are left out: the file has no place for them</source>
            <translation>Se omiten los tipos de letra de los subtítulos y sus tamaños: el archivo no tiene lugar para ellos</translation>
        </message>
        <message>
            <source>Lines through the text of subtitles are left out: the file has no place for them</source>
            <translation>Se omite el tachado de los subtítulos: el archivo no tiene lugar para él</translation>
        </message>
        <message>
            <source>Places of subtitles on the picture are left out: the file has none for them</source>
            <translation>Se omiten las posiciones de los subtítulos en la imagen: el archivo no tiene lugar para ellas</translation>
        </message>
        <message>
            <source>Of more than %1 subtitles at one time the first ones are kept: the file shows one at a time</source>
            <translation>De más de %1 subtítulos a la vez se conservan los primeros: el archivo muestra uno cada vez</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 cannot be read and are left out</source>
            <translation>subtítulos de la pista %2 que no se pueden leer y se omiten: %1</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 are longer than a subtitle can be and are left out</source>
            <translation>subtítulos de la pista %2 que son demasiado largos y se omiten: %1</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 are more than can be kept and are left out</source>
            <translation>subtítulos de la pista %2 que sobrepasan los que se pueden conservar y se omiten: %1</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 have a place of their own on the picture, which is left out</source>
            <translation>subtítulos de la pista %2 cuya posición propia en la imagen se omite: %1</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 name speakers or classes, which are left out</source>
            <translation>subtítulos de la pista %2 cuyos hablantes o clases se omiten: %1</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 have tags that WebVTT does not know, which are left out</source>
            <translation>subtítulos de la pista %2 con etiquetas que WebVTT no conoce, que se omiten: %1</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 are no UTF-8 and were read as Windows-1252</source>
            <translation>subtítulos de la pista %2 que no son UTF-8 y se leyeron como Windows-1252: %1</translation>
        </message>
        <message>
            <source>of its %1 chapters the first %2 are read</source>
            <translation>de sus %1 capítulos se leen los primeros %2</translation>
        </message>
        <message>
            <source>the tag "%1" is left out: it holds %2 bytes</source>
            <translation>se omite la etiqueta «%1»: tiene %2 bytes</translation>
        </message>
        <message>
            <source>the tag "%1" is no UTF-8 and was read as Windows-1252</source>
            <translation>la etiqueta «%1» no es UTF-8 y se leyó como Windows-1252</translation>
        </message>
        <message>
            <source>Timestamps jump by %1</source>
            <translation>Las marcas de tiempo saltan %1</translation>
        </message>
        <message>
            <source>what follows was joined on %1</source>
            <translation>lo que sigue se unió %1</translation>
        </message>
        <message>
            <source>without a gap</source>
            <translation>sin hueco</translation>
        </message>
        <message>
            <source>with the picture held for %1, in which its sound goes on</source>
            <translation>con la imagen detenida durante %1, en los que su sonido continúa</translation>
        </message>
        <message>
            <source>Its sound lasts for %1, but its timestamps only for %2; the rest is left out</source>
            <translation>Su sonido dura %1, pero sus marcas de tiempo solo %2; el resto se omite</translation>
        </message>
        <message>
            <source>The file ends at %1, and another file of its kind, which is not read, follows behind it: it is incomplete</source>
            <translation>El archivo termina en %1, y le sigue otro de su tipo que no se lee: está incompleto</translation>
        </message>
        <message>
            <source>The file ends at %1, but its header claims %2: it is incomplete</source>
            <translation>El archivo termina en %1, pero su cabecera indica %2: está incompleto</translation>
        </message>
        <message>
            <source>The file ends at %1, and %2 that it announces are missing: it is incomplete</source>
            <translation>El archivo termina en %1, y faltan %2 que anuncia: está incompleto</translation>
        </message>
        <message>
            <source>Behind what can be seen and heard, %1 are missing</source>
            <translation>Tras lo que se puede ver y oír faltan %1</translation>
        </message>
        <message>
            <source>The file has no last page; it may have been cut off</source>
            <translation>El archivo no tiene última página; puede estar cortado</translation>
        </message>
        <message>
            <source>The file ends within a packet: it was cut off, and what it ended with is missing</source>
            <translation>El archivo termina dentro de un paquete: está cortado, y falta su final</translation>
        </message>
        <message>
            <source>The %1 track begins so late that the beginning of the file does not tell of it, and is not read: it is missing</source>
            <translation>La pista (%1) empieza tan tarde que el comienzo del archivo no habla de ella, y no se lee: falta</translation>
        </message>
        <message>
            <source>nothing that can be read stands in the next %1 MiB</source>
            <translation>en los siguientes %1 MiB no hay nada que se pueda leer</translation>
        </message>
        <message>
            <source>nothing of the %1 track was found before reading ended early: %2</source>
            <translation>no se encontró nada de la pista %1 antes de que la lectura terminara antes de tiempo: %2</translation>
        </message>
        <message>
            <source>nothing of the %1 track was found in the first %2 MiB; if it begins later, it is missing</source>
            <translation>no se encontró nada de la pista %1 en los primeros %2 MiB; si empieza después, falta</translation>
        </message>
        <message>
            <source>no frame of the %1 track can be decoded</source>
            <translation>no se puede decodificar nada de la pista %1</translation>
        </message>
        <message>
            <source>A damaged picture was concealed: "%1"</source>
            <translation>Se disimuló una imagen dañada: «%1»</translation>
        </message>
        <message>
            <source>it holds no picture that can be decoded</source>
            <translation>no contiene ninguna imagen que se pueda decodificar</translation>
        </message>
        <message>
            <source>it holds no picture</source>
            <translation>no contiene ninguna imagen</translation>
        </message>
        <message>
            <source>Looking at "%1" does not come to an end</source>
            <translation>La comprobación de «%1» no termina</translation>
        </message>
        <message>
            <source>Reading the finished file and moving it to "%1" does not come to an end</source>
            <translation>La lectura del archivo terminado y su traslado a «%1» no terminan</translation>
        </message>
        <message>
            <source>The folder of "%1" does not answer: an unfinished file may be left there, %2</source>
            <translation>La carpeta de «%1» no responde: puede quedar allí un archivo sin terminar, %2</translation>
        </message>
        <message>
            <source>Your own presets are left out: %1</source>
            <translation>Se omiten sus propios preajustes: %1</translation>
        </message>
        <message>
            <source>%1 of the %2 pictures that it shows are not there, the first one is "%3"</source>
            <translation>no están %1 de las %2 imágenes que muestra, la primera es «%3»</translation>
        </message>
        <message>
            <source>a tone stands among pictures, where it is not heard</source>
            <translation>un tono está entre imágenes, donde no se oye</translation>
        </message>
        <message>
            <source>bars stand among sound, where they are not seen</source>
            <translation>unas barras están entre sonido, donde no se ven</translation>
        </message>
        <message>
            <source>pictures stand among sound</source>
            <translation>hay imágenes entre sonido</translation>
        </message>
        <message>
            <source>%1 more clips lie between two frames and are not seen</source>
            <translation>%1 clips más están entre dos fotogramas y no se ven</translation>
        </message>
        <message>
            <source>the track does not say what it holds; it is taken for pictures</source>
            <translation>la pista no dice qué contiene; se toma por imagen</translation>
        </message>
        <message>
            <source>tracks of the kind "%1" are left out</source>
            <translation>se omiten las pistas del tipo «%1»</translation>
        </message>
        <message>
            <source>a transition stands outside of a track and is left out</source>
            <translation>una transición está fuera de una pista y se omite</translation>
        </message>
        <message>
            <source>"%1" is not known</source>
            <translation>«%1» no se conoce</translation>
        </message>
        <message>
            <source>there is a gap in its place</source>
            <translation>en su lugar hay un hueco</translation>
        </message>
        <message>
            <source>it has no length either, and what follows begins at its place</source>
            <translation>tampoco tiene duración, y lo que sigue empieza en su lugar</translation>
        </message>
        <message>
            <source>it lasts no time and is left out</source>
            <translation>no dura nada y se omite</translation>
        </message>
        <message>
            <source>it follows another transition and is left out</source>
            <translation>sigue a otra transición y se omite</translation>
        </message>
        <message>
            <source>there is no time for it, and it is left out</source>
            <translation>no hay tiempo para ella y se omite</translation>
        </message>
        <message>
            <source>it is longer than the clips beside it and is shortened to them</source>
            <translation>es más larga que los clips contiguos y se acorta a ellos</translation>
        </message>
        <message>
            <source>the stack "%1" before it has too little beyond the cut: for %2 ms its picture stands still, and nothing is heard of it</source>
            <translation>la pila «%1» anterior tiene muy poco tras el corte: durante %2 ms su imagen queda quieta y no se oye nada de ella</translation>
        </message>
        <message>
            <source>the stack "%1" before it has too little beyond the cut: for %2 ms nothing is heard of it</source>
            <translation>la pila «%1» anterior tiene muy poco tras el corte: durante %2 ms no se oye nada de ella</translation>
        </message>
        <message>
            <source>the stack "%1" behind it has too little before the cut: for %2 ms its picture stands still, and nothing is heard of it</source>
            <translation>la pila «%1» posterior tiene muy poco antes del corte: durante %2 ms su imagen queda quieta y no se oye nada de ella</translation>
        </message>
        <message>
            <source>the stack "%1" behind it has too little before the cut: for %2 ms nothing is heard of it</source>
            <translation>la pila «%1» posterior tiene muy poco antes del corte: durante %2 ms no se oye nada de ella</translation>
        </message>
        <message>
            <source>the global start time lies outside of 0 to 24 hours, and its time code wraps around</source>
            <translation>la hora de inicio global está fuera de 0 a 24 horas, y su código de tiempo da la vuelta</translation>
        </message>
        <message>
            <source>frames that are missing are an error, not "%1"</source>
            <translation>los fotogramas que faltan son un error, no «%1»</translation>
        </message>
        <message>
            <source>the tone's frequency is no number from 1 to 20000; it sounds at 1000 Hz</source>
            <translation>la frecuencia del tono no es un número de 1 a 20000; suena a 1000 Hz</translation>
        </message>
        <message>
            <source>the colour is not told as red, green and blue from 0 to 1 or as "#rrggbb"; it is black</source>
            <translation>el color no se indica como rojo, verde y azul de 0 a 1 ni como «#rrggbb»; es negro</translation>
        </message>
        <message>
            <source>it is no marker and is left out</source>
            <translation>no es un marcador y se omite</translation>
        </message>
        <message>
            <source>the marker is left out</source>
            <translation>el marcador se omite</translation>
        </message>
        <message>
            <source>a NUL stands in the name, which ends there</source>
            <translation>en el nombre hay un NUL, y termina ahí</translation>
        </message>
        <message>
            <source>%1 more findings are not listed</source>
            <translation>%1 hallazgos más no se enumeran</translation>
        </message>
        <message>
            <source>"%1" stands in it more than once; the last one counts</source>
            <translation>«%1» aparece más de una vez; cuenta la última</translation>
        </message>
        <message>
            <source>it goes beyond what there is of its contents and %1</source>
            <translation>sobrepasa lo que hay de su contenido y %1</translation>
        </message>
        <message>
            <source>holds the first picture throughout</source>
            <translation>mantiene siempre la primera imagen</translation>
        </message>
        <message>
            <source>holds the last picture throughout</source>
            <translation>mantiene siempre la última imagen</translation>
        </message>
        <message>
            <source>its media "%1" is not among its references</source>
            <translation>su archivo «%1» no está entre sus referencias</translation>
        </message>
        <message>
            <source>is of the unknown schema "%1"</source>
            <translation>es del esquema desconocido «%1»</translation>
        </message>
        <message>
            <source>is the unknown generator "%1"</source>
            <translation>es el generador desconocido «%1»</translation>
        </message>
        <message>
            <source>is a sequence of pictures without a proper numbering, rate or name</source>
            <translation>es una secuencia de imágenes sin numeración, frecuencia o nombre correctos</translation>
        </message>
        <message>
            <source>its entry "%1" %2</source>
            <translation>su entrada «%1» %2</translation>
        </message>
        <message>
            <source>is in it twice</source>
            <translation>está dos veces</translation>
        </message>
        <message>
            <source>cannot be unpacked: %1</source>
            <translation>no se puede desempaquetar: %1</translation>
        </message>
        <message>
            <source>has a name that leads out of the archive</source>
            <translation>tiene un nombre que lleva fuera del archivo comprimido</translation>
        </message>
        <message>
            <source>%1 is newer than what can be read, %2</source>
            <translation>%1 es más nuevo que lo que se puede leer, %2</translation>
        </message>
        <message>
            <source>has no name</source>
            <translation>no tiene nombre</translation>
        </message>
        <message>
            <source>has a name with a zero byte</source>
            <translation>tiene un nombre con un byte cero</translation>
        </message>
        <message>
            <source>is a URL of the scheme "%1"; only files are opened</source>
            <translation>es una URL del esquema «%1»; solo se abren archivos</translation>
        </message>
        <message>
            <source>cannot be looked at: %1</source>
            <translation>no se puede mirar: %1</translation>
        </message>
        <message>
            <source>is no folder</source>
            <translation>no es una carpeta</translation>
        </message>
        <message>
            <source>%1, marker "%2": %3</source>
            <translation>%1, marcador «%2»: %3</translation>
        </message>
        <message>
            <source>stack "%1": %2</source>
            <translation>pila «%1»: %2</translation>
        </message>
        <message>
            <source>track "%1": %2</source>
            <translation>pista «%1»: %2</translation>
        </message>
        <message>
            <source>clip "%1": %2</source>
            <translation>clip «%1»: %2</translation>
        </message>
        <message>
            <source>The mix goes %1 dB beyond full scale, %2</source>
            <translation>La mezcla supera el nivel máximo en %1 dB, %2</translation>
        </message>
        <message>
            <source>and its peaks are turned down</source>
            <translation>y se bajan sus picos</translation>
        </message>
        <message>
            <source>which samples in integers cannot hold</source>
            <translation>lo que las muestras enteras no pueden contener</translation>
        </message>
        <message>
            <source>stacks and tracks stand too deep in each other</source>
            <translation>las pilas y las pistas están anidadas a demasiada profundidad</translation>
        </message>
        <message>
            <source>a stack has no list of children</source>
            <translation>una pila no tiene lista de elementos</translation>
        </message>
        <message>
            <source>a track has no list of children</source>
            <translation>una pista no tiene lista de elementos</translation>
        </message>
        <message>
            <source>the track lasts longer than a year</source>
            <translation>la pista dura más de un año</translation>
        </message>
        <message>
            <source>nothing tells how long it lasts</source>
            <translation>nada indica cuánto dura</translation>
        </message>
        <message>
            <source>a transition reaches a negative time to one side</source>
            <translation>una transición se extiende un tiempo negativo hacia un lado</translation>
        </message>
        <message>
            <source>%1 timelines in it are called "%2"; their numbers choose one: %3</source>
            <translation>%1 líneas de tiempo se llaman «%2»; sus números eligen una: %3</translation>
        </message>
        <message>
            <source>there is no timeline in it</source>
            <translation>no contiene ninguna línea de tiempo</translation>
        </message>
        <message>
            <source>there is no timeline "%1" in it; there are %2</source>
            <translation>no contiene ninguna línea de tiempo «%1»; hay %2</translation>
        </message>
        <message>
            <source>there are several timelines in it, and none was chosen: %1</source>
            <translation>contiene varias líneas de tiempo y no se eligió ninguna: %1</translation>
        </message>
        <message>
            <source>the timeline has no tracks</source>
            <translation>la línea de tiempo no tiene pistas</translation>
        </message>
        <message>
            <source>the folder that it stands in cannot be told: %1</source>
            <translation>no se puede determinar la carpeta en la que está: %1</translation>
        </message>
        <message>
            <source>there is nothing on the timeline</source>
            <translation>no hay nada en la línea de tiempo</translation>
        </message>
        <message>
            <source>there is no content.otio in it</source>
            <translation>no contiene content.otio</translation>
        </message>
        <message>
            <source>the speed is no number from -100 to 100</source>
            <translation>la velocidad no es un número de -100 a 100</translation>
        </message>
        <message>
            <source>it is no plain file</source>
            <translation>no es un archivo normal</translation>
        </message>
        <message>
            <source>it is not there</source>
            <translation>no está</translation>
        </message>
        <message>
            <source>it is longer than a timeline should be (1 GiB)</source>
            <translation>es más largo de lo que debería ser una línea de tiempo (1 GiB)</translation>
        </message>
        <message>
            <source>it became shorter while it was read</source>
            <translation>se acortó mientras se leía</translation>
        </message>
        <message>
            <source>half of a surrogate pair stands in it, which is no letter</source>
            <translation>contiene medio par sustituto, que no es ninguna letra</translation>
        </message>
        <message>
            <source>it nests deeper than a timeline should (%1)</source>
            <translation>está anidado a más profundidad de la debida (%1)</translation>
        </message>
        <message>
            <source>it is no JSON: %1 (line %2, column %3)</source>
            <translation>no es JSON: %1 (línea %2, columna %3)</translation>
        </message>
        <message>
            <source>the %1 of a time is no number</source>
            <translation>un tiempo no es un número (%1)</translation>
        </message>
        <message>
            <source>the %1 of a time is not finite</source>
            <translation>un tiempo no es finito (%1)</translation>
        </message>
        <message>
            <source>a time is missing</source>
            <translation>falta un tiempo</translation>
        </message>
        <message>
            <source>a time lies more than a year away</source>
            <translation>un tiempo está a más de un año</translation>
        </message>
        <message>
            <source>a time's rate is not above 0 or beyond all measure</source>
            <translation>la frecuencia de un tiempo no es mayor que 0 o es desmesurada</translation>
        </message>
        <message>
            <source>a range of time is missing</source>
            <translation>falta un intervalo de tiempo</translation>
        </message>
        <message>
            <source>a duration is negative</source>
            <translation>una duración es negativa</translation>
        </message>
        <message>
            <source>is encrypted</source>
            <translation>está cifrada</translation>
        </message>
        <message>
            <source>claims to hold %1 in %2 bytes, which media never do</source>
            <translation>dice contener %1 en %2 bytes, lo que ningún medio hace</translation>
        </message>
        <message>
            <source>takes %1, and where it would be unpacked %2 are free</source>
            <translation>ocupa %1, y donde se desempaquetaría hay %2 libres</translation>
        </message>
        <message>
            <source>makes %1 of an archive of %2 bytes, which media never do</source>
            <translation>convierte un archivo comprimido de %2 bytes en %1, lo que ningún medio hace</translation>
        </message>
        <message>
            <source>is not unpacked: that was stopped</source>
            <translation>no se desempaqueta: se detuvo</translation>
        </message>
        <message>
            <source>is damaged: it does not hold what it claims to</source>
            <translation>está dañada: no contiene lo que dice</translation>
        </message>
        <message>
            <source>is damaged: %1</source>
            <translation>está dañada: %1</translation>
        </message>
        <message>
            <source>cannot be unpacked</source>
            <translation>no se puede desempaquetar</translation>
        </message>
        <message>
            <source>it is no zip archive, or a damaged one: %1</source>
            <translation>no es un archivo zip, o está dañado: %1</translation>
        </message>
        <message>
            <source>it has more entries than a timeline should (%1)</source>
            <translation>tiene más entradas de las que debería una línea de tiempo (%1)</translation>
        </message>
        <message>
            <source>its entry %1 is damaged</source>
            <translation>su entrada %1 está dañada</translation>
        </message>
        <message>
            <source>it is an archive of version %1, and version 1 is known</source>
            <translation>es un archivo comprimido de la versión %1, y se conoce la versión 1</translation>
        </message>
        <message>
            <source>there is no folder to unpack it to: %1</source>
            <translation>no hay carpeta donde desempaquetarlo: %1</translation>
        </message>
        <message>
            <source>mono</source>
            <translation>mono</translation>
        </message>
        <message>
            <source>stereo</source>
            <translation>estéreo</translation>
        </message>
        <message>
            <source>%1 channels</source>
            <translation>%1 canales</translation>
        </message>
        <message>
            <source>%1 channels (%2)</source>
            <translation>%1 canales (%2)</translation>
        </message>
        <message>
            <source>%1 (track %2)</source>
            <translation>%1 (pista %2)</translation>
        </message>
        <message>
            <source>%1 attachments</source>
            <translation>%1 archivos adjuntos</translation>
        </message>
        <message>
            <source>%1 tags</source>
            <translation>%1 etiquetas</translation>
        </message>
        <message>
            <source>%1 bytes</source>
            <translation>%1 bytes</translation>
        </message>
        <message>
            <source>picture</source>
            <translation>imagen</translation>
        </message>
        <message>
            <source>sound</source>
            <translation>sonido</translation>
        </message>
        <message>
            <source>%1 at its start and %2</source>
            <translation>%1 al principio y %2</translation>
        </message>
        <message>
            <source>%1 at its start</source>
            <translation>%1 al principio</translation>
        </message>
        <message>
            <source>%1 at its end</source>
            <translation>%1 al final</translation>
        </message>
        <message>
            <source>%1, nor below the folder for media</source>
            <translation>%1, ni tampoco bajo la carpeta de medios</translation>
        </message>
        <message>
            <source>stack: %1</source>
            <translation>pila: %1</translation>
        </message>
        <message>
            <source>track: %1</source>
            <translation>pista: %1</translation>
        </message>
        <message>
            <source>%1 (/%2)</source>
            <translation>%1 (/%2)</translation>
        </message>
        <message>
            <source>value</source>
            <translation>valor</translation>
        </message>
        <message>
            <source>rate</source>
            <translation>frecuencia</translation>
        </message>
    </context>
</TS>
