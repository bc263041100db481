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
    </context>
    <context>
        <name>Dialog::ExportWindow</name>
        <message>
            <source>Export</source>
            <translation>Exportar</translation>
        </message>
        <message>
            <source>&amp;Open…</source>
            <translation>&amp;Abrir…</translation>
        </message>
        <message>
            <source>Use black for what is missing</source>
            <translation>Dejar en negro lo que falta</translation>
        </message>
        <message>
            <source>Add to &amp;queue</source>
            <translation>Añadir a la &amp;cola</translation>
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
            <source>Stop</source>
            <translation>Detener</translation>
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
            <source>An export is running. Stop it and close? Nothing of it is kept.</source>
            <translation>Hay una exportación en curso. ¿Detenerla y cerrar? No se conserva nada.</translation>
        </message>
        <message>
            <source>Stop and close</source>
            <translation>Detener y cerrar</translation>
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
    </context>
    <context>
        <name>Dialog::JobPane</name>
        <message>
            <source>&amp;Jobs:</source>
            <translation>&amp;Trabajos:</translation>
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
            <translation>For&amp;mato:</translation>
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
            <translation>Ajustes &amp;propios</translation>
        </message>
        <message>
            <source>Si&amp;ze:</source>
            <translation>&amp;Tamaño:</translation>
        </message>
        <message>
            <source>Frame &amp;rate:</source>
            <translation>&amp;Fotogramas/s:</translation>
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
            <translation>Tasa del &amp;sonido:</translation>
        </message>
        <message>
            <source>R&amp;eset</source>
            <translation>R&amp;establecer</translation>
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
            <translation>P&amp;arte</translation>
        </message>
        <message>
            <source>Between mar&amp;kers</source>
            <translation>Entre mar&amp;cas</translation>
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
            <translation>Punto de &amp;salida:</translation>
        </message>
        <message>
            <source>End</source>
            <translation>Fin</translation>
        </message>
        <message>
            <source>&amp;First marker:</source>
            <translation>&amp;Primera marca:</translation>
        </message>
        <message>
            <source>Endin&amp;g marker:</source>
            <translation>&amp;Última marca:</translation>
        </message>
        <message>
            <source>Wit&amp;h picture</source>
            <translation>Con i&amp;magen</translation>
        </message>
        <message>
            <source>With soun&amp;d</source>
            <translation>Con soni&amp;do</translation>
        </message>
        <message>
            <source>E&amp;nding:</source>
            <translation>Ci&amp;erre:</translation>
        </message>
        <message>
            <source>Fi&amp;le:</source>
            <translation>&amp;Archivo:</translation>
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
            <source>gif-gif-480p</source>
            <translation>GIF, hasta 480p, solo imagen</translation>
        </message>
        <message>
            <source>gif-gif-240p</source>
            <translation>GIF, hasta 240p, solo imagen</translation>
        </message>
    </context>
    <context>
        <name>ExportCore::ExportJob</name>
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
            <source>Each of the timeline's markers is</source>
            <translation>Cada marcador de la línea de tiempo</translation>
        </message>
        <message>
            <source>The timeline's time code is</source>
            <translation>El código de tiempo de la línea de tiempo</translation>
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
</TS>
