<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
    <context>
        <name>Dialog::ExportForm</name>
        <message>
            <source>This preset is not possible: %1</source>
            <translation>Diese Vorgabe ist nicht möglich: %1</translation>
        </message>
        <message>
            <source>Neither picture nor sound would be in the file</source>
            <translation>Die Datei enthielte weder Bild noch Ton</translation>
        </message>
        <message>
            <source>The first marker must come before the ending one</source>
            <translation>Die erste Marke muss vor der letzten liegen</translation>
        </message>
        <message>
            <source>“%1” is no time; write minutes and seconds as 1:30, or frames as 120f</source>
            <translation>„%1“ ist keine Zeit; Minuten und Sekunden wie 1:30, Bilder wie 120f</translation>
        </message>
        <message>
            <source>The in point must lie before the out point, and before the end</source>
            <translation>Der In-Punkt muss vor dem Out-Punkt und vor dem Ende liegen</translation>
        </message>
        <message>
            <source>What was opened cannot be exported</source>
            <translation>Was geöffnet wurde, lässt sich nicht exportieren</translation>
        </message>
        <message>
            <source>The source is being opened</source>
            <translation>Die Quelle wird geöffnet</translation>
        </message>
        <message>
            <source>Open what is to be exported</source>
            <translation>Öffnen Sie, was exportiert werden soll</translation>
        </message>
        <message>
            <source>The file needs a name</source>
            <translation>Die Datei braucht einen Namen</translation>
        </message>
        <message>
            <source>The custom settings do not fit</source>
            <translation>Die eigenen Einstellungen passen nicht</translation>
        </message>
    </context>
    <context>
        <name>Dialog::ExportWindow</name>
        <message>
            <source>Export</source>
            <translation>Export</translation>
        </message>
        <message>
            <source>&amp;Open…</source>
            <translation>Ö&amp;ffnen…</translation>
        </message>
        <message>
            <source>Use black for what is missing</source>
            <translation>Fehlendes schwarz lassen</translation>
        </message>
        <message>
            <source>Add to &amp;queue</source>
            <translation>In &amp;Warteschlange</translation>
        </message>
        <message>
            <source>E&amp;xport</source>
            <translation>E&amp;xportieren</translation>
        </message>
        <message>
            <source>Open what is to be exported</source>
            <translation>Öffnen Sie, was exportiert werden soll</translation>
        </message>
        <message>
            <source>Nothing is open</source>
            <translation>Nichts geöffnet</translation>
        </message>
        <message>
            <source>Drop media files or a timeline here</source>
            <translation>Mediendateien oder eine Timeline hierher ziehen</translation>
        </message>
        <message>
            <source>Opening…</source>
            <translation>Wird geöffnet…</translation>
        </message>
        <message numerus="yes">
            <source>and %n more</source>
            <translation>
                <numerusform>und %n weitere</numerusform>
                <numerusform>und %n weitere</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 – %2 – Export</source>
            <comment>state, file</comment>
            <translation>%1 – %2 – Export</translation>
        </message>
        <message>
            <source>takes %1</source>
            <comment>a time</comment>
            <translation>dauert %1</translation>
        </message>
        <message>
            <source>Another export in the list is to become “%1” as well.</source>
            <translation>Ein anderer Export in der Liste soll auch „%1“ werden.</translation>
        </message>
        <message>
            <source>Add it all the same</source>
            <translation>Trotzdem hinzufügen</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>Abbrechen</translation>
        </message>
        <message>
            <source>“%1” is there already. It is replaced when the export is complete, and not before.</source>
            <translation>„%1“ gibt es schon. Die Datei wird ersetzt, wenn der Export vollständig ist, nicht vorher.</translation>
        </message>
        <message>
            <source>Replace</source>
            <translation>Ersetzen</translation>
        </message>
        <message>
            <source>A film is being exported</source>
            <translation>Ein Film wird exportiert</translation>
        </message>
        <message>
            <source>Stop the export</source>
            <translation>Export abbrechen</translation>
        </message>
        <message>
            <source>Stop the export of “%1”? Nothing of it is kept.</source>
            <translation>Export von „%1“ abbrechen? Nichts davon bleibt.</translation>
        </message>
        <message>
            <source>Stop</source>
            <translation>Abbrechen</translation>
        </message>
        <message>
            <source>Go on</source>
            <translation>Weitermachen</translation>
        </message>
        <message>
            <source>Close</source>
            <translation>Schließen</translation>
        </message>
        <message>
            <source>An export is running. Stop it and close? Nothing of it is kept.</source>
            <translation>Ein Export läuft. Abbrechen und schließen? Nichts davon bleibt.</translation>
        </message>
        <message>
            <source>Stop and close</source>
            <translation>Abbrechen und schließen</translation>
        </message>
    </context>
    <context>
        <name>Dialog::Job</name>
        <message>
            <source>Waiting</source>
            <translation>Wartet</translation>
        </message>
        <message>
            <source>Starting</source>
            <translation>Beginnt</translation>
        </message>
        <message>
            <source>%1 %</source>
            <translation>%1 %</translation>
        </message>
        <message>
            <source>Checking</source>
            <translation>Wird geprüft</translation>
        </message>
        <message>
            <source>Stopping</source>
            <translation>Wird abgebrochen</translation>
        </message>
        <message>
            <source>Stopped</source>
            <translation>Abgebrochen</translation>
        </message>
        <message>
            <source>Done</source>
            <translation>Fertig</translation>
        </message>
        <message>
            <source>Failed</source>
            <translation>Fehlgeschlagen</translation>
        </message>
        <message>
            <source>%1 × real time</source>
            <translation>%1 × Echtzeit</translation>
        </message>
        <message>
            <source>%1 left</source>
            <translation>noch %1</translation>
        </message>
    </context>
    <context>
        <name>Dialog::JobPane</name>
        <message>
            <source>&amp;Jobs:</source>
            <translation>Auf&amp;träge:</translation>
        </message>
        <message>
            <source>Start queue</source>
            <translation>Warteschlange starten</translation>
        </message>
        <message>
            <source>Nothing is selected.</source>
            <translation>Nichts ausgewählt.</translation>
        </message>
        <message>
            <source>It begins when the exports before it have ended.</source>
            <translation>Beginnt, wenn die Exporte davor beendet sind.</translation>
        </message>
        <message>
            <source>Take out of the queue</source>
            <translation>Aus der Warteschlange nehmen</translation>
        </message>
        <message>
            <source>Picture that is being encoded</source>
            <translation>Bild, das gerade kodiert wird</translation>
        </message>
        <message>
            <source>Progress of the export</source>
            <translation>Fortschritt des Exports</translation>
        </message>
        <message>
            <source>Stop…</source>
            <translation>Abbrechen…</translation>
        </message>
        <message>
            <source>Details</source>
            <translation>Einzelheiten</translation>
        </message>
        <message>
            <source>Details of the export</source>
            <translation>Einzelheiten des Exports</translation>
        </message>
        <message>
            <source>Open</source>
            <translation>Öffnen</translation>
        </message>
        <message>
            <source>Show in folder</source>
            <translation>Im Ordner zeigen</translation>
        </message>
        <message>
            <source>Try again</source>
            <translation>Erneut versuchen</translation>
        </message>
        <message>
            <source>Copy report</source>
            <translation>Bericht kopieren</translation>
        </message>
        <message>
            <source>Remove</source>
            <translation>Entfernen</translation>
        </message>
        <message>
            <source>Jobs</source>
            <translation>Aufträge</translation>
        </message>
        <message>
            <source>Outcome of the export</source>
            <translation>Ergebnis des Exports</translation>
        </message>
    </context>
    <context>
        <name>Dialog::JobQueue</name>
        <message>
            <source>File</source>
            <translation>Datei</translation>
        </message>
        <message>
            <source>Preset</source>
            <translation>Vorgabe</translation>
        </message>
        <message>
            <source>State</source>
            <translation>Zustand</translation>
        </message>
    </context>
    <context>
        <name>Dialog::OutcomeText</name>
        <message>
            <source>The source is not there</source>
            <translation>Die Quelle ist nicht da</translation>
        </message>
        <message>
            <source>The source cannot be read</source>
            <translation>Die Quelle kann nicht gelesen werden</translation>
        </message>
        <message>
            <source>The source is damaged</source>
            <translation>Die Quelle ist beschädigt</translation>
        </message>
        <message>
            <source>The file cannot be written</source>
            <translation>Die Datei kann nicht geschrieben werden</translation>
        </message>
        <message>
            <source>The disk is full</source>
            <translation>Der Datenträger ist voll</translation>
        </message>
        <message>
            <source>Writing the file failed</source>
            <translation>Das Schreiben der Datei ist fehlgeschlagen</translation>
        </message>
        <message>
            <source>An encoder is missing</source>
            <translation>Ein Encoder fehlt</translation>
        </message>
        <message>
            <source>The encoder refused its settings</source>
            <translation>Der Encoder lehnt seine Einstellungen ab</translation>
        </message>
        <message>
            <source>Encoding failed</source>
            <translation>Das Kodieren ist fehlgeschlagen</translation>
        </message>
        <message>
            <source>Preparing the pictures or the sound failed</source>
            <translation>Das Aufbereiten von Bild oder Ton ist fehlgeschlagen</translation>
        </message>
        <message>
            <source>The file's format cannot hold this</source>
            <translation>Das Dateiformat kann das nicht aufnehmen</translation>
        </message>
        <message>
            <source>There is not enough memory</source>
            <translation>Der Arbeitsspeicher reicht nicht</translation>
        </message>
        <message>
            <source>The export made no progress</source>
            <translation>Der Export kam nicht voran</translation>
        </message>
        <message>
            <source>This cannot be exported</source>
            <translation>Das lässt sich nicht exportieren</translation>
        </message>
        <message>
            <source>This is not supported</source>
            <translation>Das wird nicht unterstützt</translation>
        </message>
        <message>
            <source>The export failed</source>
            <translation>Der Export ist fehlgeschlagen</translation>
        </message>
        <message>
            <source>Check that the file is where it was, and that its disk or share is connected.</source>
            <translation>Prüfen Sie, ob die Datei noch da ist und ihr Datenträger oder ihre Freigabe verbunden ist.</translation>
        </message>
        <message>
            <source>Export the part before the damage, or get the file anew.</source>
            <translation>Exportieren Sie den Teil vor dem Schaden, oder besorgen Sie die Datei neu.</translation>
        </message>
        <message>
            <source>Save the file under another name or in another folder.</source>
            <translation>Speichern Sie die Datei unter einem anderen Namen oder in einem anderen Ordner.</translation>
        </message>
        <message>
            <source>Make room on the disk, save to another one, or choose a lower quality.</source>
            <translation>Schaffen Sie Platz, speichern Sie woanders, oder wählen Sie eine geringere Qualität.</translation>
        </message>
        <message>
            <source>Check the disk, or save to another one.</source>
            <translation>Prüfen Sie den Datenträger, oder speichern Sie woanders.</translation>
        </message>
        <message>
            <source>Choose another preset, or reset the custom settings.</source>
            <translation>Wählen Sie eine andere Vorgabe, oder setzen Sie die eigenen Einstellungen zurück.</translation>
        </message>
        <message>
            <source>Close other programs, or export a smaller picture.</source>
            <translation>Schließen Sie andere Programme, oder exportieren Sie ein kleineres Bild.</translation>
        </message>
        <message>
            <source>Check that the disks and shares of source and file answer, then try again.</source>
            <translation>Prüfen Sie, ob Datenträger und Freigaben von Quelle und Datei antworten, und versuchen Sie es erneut.</translation>
        </message>
        <message numerus="yes">
            <source>%1, %2 × %3, %n frame(s)</source>
            <translation>
                <numerusform>%1, %2 × %3, %n Bild</numerusform>
                <numerusform>%1, %2 × %3, %n Bilder</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1, %2, %n channel(s)</source>
            <translation>
                <numerusform>%1, %2, %n Kanal</numerusform>
                <numerusform>%1, %2, %n Kanäle</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 long, %2</source>
            <translation>%1 lang, %2</translation>
        </message>
        <message>
            <source>Made in %1. Read back to its last byte: it is what was ordered.</source>
            <translation>In %1 erstellt. Bis zum letzten Byte gelesen: Es ist, was bestellt war.</translation>
        </message>
        <message>
            <source>%1 is done</source>
            <translation>%1 ist fertig</translation>
        </message>
        <message>
            <source>Stopped</source>
            <translation>Abgebrochen</translation>
        </message>
        <message>
            <source>Nothing was written.</source>
            <translation>Nichts wurde geschrieben.</translation>
        </message>
        <message>
            <source>Error:</source>
            <translation>Fehler:</translation>
        </message>
        <message>
            <source>Preset:</source>
            <translation>Vorgabe:</translation>
        </message>
        <message>
            <source>File:</source>
            <translation>Datei:</translation>
        </message>
        <message>
            <source>Source</source>
            <translation>Quelle</translation>
        </message>
        <message>
            <source>Warning</source>
            <translation>Warnung</translation>
        </message>
        <message>
            <source>Note</source>
            <translation>Hinweis</translation>
        </message>
    </context>
    <context>
        <name>Dialog::OutputName</name>
        <message>
            <source>%1 (export)</source>
            <comment>a file's name</comment>
            <translation>%1 (Export)</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PeoplesText</name>
        <message>
            <source>a few seconds</source>
            <translation>ein paar Sekunden</translation>
        </message>
        <message numerus="yes">
            <source>about %n second(s)</source>
            <translation>
                <numerusform>etwa %n Sekunde</numerusform>
                <numerusform>etwa %n Sekunden</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>about %n minute(s)</source>
            <translation>
                <numerusform>etwa %n Minute</numerusform>
                <numerusform>etwa %n Minuten</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>about %n hour(s)</source>
            <translation>
                <numerusform>etwa %n Stunde</numerusform>
                <numerusform>etwa %n Stunden</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 frames/s</source>
            <translation>%1 Bilder/s</translation>
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
            <translation>%1, nicht möglich: %2</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PresetObstacle</name>
        <message>
            <source>%1 does not take %2</source>
            <translation>%1 nimmt %2 nicht</translation>
        </message>
        <message>
            <source>%1 takes no side below %2 pixels</source>
            <translation>%1 nimmt keine Seite unter %2 Pixeln</translation>
        </message>
        <message>
            <source>The source has no sound</source>
            <translation>Die Quelle hat keinen Ton</translation>
        </message>
        <message>
            <source>The source has no picture</source>
            <translation>Die Quelle hat kein Bild</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PresetPane</name>
        <message>
            <source>For&amp;mat:</source>
            <translation>For&amp;mat:</translation>
        </message>
        <message>
            <source>&amp;Search:</source>
            <translation>&amp;Suche:</translation>
        </message>
        <message>
            <source>Codec, size or name</source>
            <translation>Codec, Größe oder Name</translation>
        </message>
        <message>
            <source>Presets</source>
            <translation>Vorgaben</translation>
        </message>
        <message>
            <source>No preset of this format has these words.</source>
            <translation>Keine Vorgabe dieses Formats enthält diese Wörter.</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PresetText</name>
        <message>
            <source>%1 picture, %2 × %3</source>
            <translation>%1-Bild, %2 × %3</translation>
        </message>
        <message>
            <source>%1 picture, up to %2 × %3</source>
            <translation>%1-Bild, bis %2 × %3</translation>
        </message>
        <message>
            <source>, lossless</source>
            <translation>, verlustfrei</translation>
        </message>
        <message>
            <source>, two passes</source>
            <translation>, zwei Durchläufe</translation>
        </message>
        <message>
            <source>%1 sound</source>
            <translation>%1-Ton</translation>
        </message>
    </context>
    <context>
        <name>Dialog::RangeStrip</name>
        <message>
            <source>From %1 to %2</source>
            <translation>Von %1 bis %2</translation>
        </message>
    </context>
    <context>
        <name>Dialog::SettingsPane</name>
        <message>
            <source>Qualit&amp;y:</source>
            <translation>&amp;Qualität:</translation>
        </message>
        <message>
            <source>C&amp;ustom settings</source>
            <translation>Ei&amp;gene Einstellungen</translation>
        </message>
        <message>
            <source>Si&amp;ze:</source>
            <translation>&amp;Größe:</translation>
        </message>
        <message>
            <source>Frame &amp;rate:</source>
            <translation>&amp;Bildrate:</translation>
        </message>
        <message>
            <source>Rate &amp;control:</source>
            <translation>Raten&amp;steuerung:</translation>
        </message>
        <message>
            <source>Value:</source>
            <translation>Wert:</translation>
        </message>
        <message>
            <source>Quality on the codec's scale</source>
            <translation>Qualität auf der Skala des Codecs</translation>
        </message>
        <message>
            <source>Bitrate of the picture</source>
            <translation>Bitrate des Bildes</translation>
        </message>
        <message>
            <source> kbit/s</source>
            <translation> kbit/s</translation>
        </message>
        <message>
            <source>as the preset says</source>
            <translation>wie die Vorgabe</translation>
        </message>
        <message>
            <source>Sample ra&amp;te:</source>
            <translation>A&amp;btastrate:</translation>
        </message>
        <message>
            <source>Sound &amp;bitrate:</source>
            <translation>&amp;Tonbitrate:</translation>
        </message>
        <message>
            <source>R&amp;eset</source>
            <translation>&amp;Zurücksetzen</translation>
        </message>
        <message>
            <source>Range</source>
            <translation>Bereich</translation>
        </message>
        <message>
            <source>&amp;Whole</source>
            <translation>&amp;Alles</translation>
        </message>
        <message>
            <source>P&amp;art</source>
            <translation>T&amp;eil</translation>
        </message>
        <message>
            <source>Between mar&amp;kers</source>
            <translation>Zwischen Mar&amp;ken</translation>
        </message>
        <message>
            <source>Range on the timeline</source>
            <translation>Bereich auf der Zeitleiste</translation>
        </message>
        <message>
            <source>Everything is exported, from start to end.</source>
            <translation>Alles wird exportiert, von Anfang bis Ende.</translation>
        </message>
        <message>
            <source>&amp;In point:</source>
            <translation>&amp;In-Punkt:</translation>
        </message>
        <message>
            <source>Start</source>
            <translation>Anfang</translation>
        </message>
        <message>
            <source>Hours, minutes and seconds, as 1:02:03.5, or frames, as 120f</source>
            <translation>Stunden, Minuten und Sekunden wie 1:02:03.5 oder Bilder wie 120f</translation>
        </message>
        <message>
            <source>Out &amp;point:</source>
            <translation>&amp;Out-Punkt:</translation>
        </message>
        <message>
            <source>End</source>
            <translation>Ende</translation>
        </message>
        <message>
            <source>&amp;First marker:</source>
            <translation>&amp;Erste Marke:</translation>
        </message>
        <message>
            <source>Endin&amp;g marker:</source>
            <translation>&amp;Letzte Marke:</translation>
        </message>
        <message>
            <source>Wit&amp;h picture</source>
            <translation>&amp;Mit Bild</translation>
        </message>
        <message>
            <source>With soun&amp;d</source>
            <translation>Mit T&amp;on</translation>
        </message>
        <message>
            <source>E&amp;nding:</source>
            <translation>Abspa&amp;nn:</translation>
        </message>
        <message>
            <source>Fi&amp;le:</source>
            <translation>&amp;Datei:</translation>
        </message>
        <message>
            <source>Sa&amp;ve as…</source>
            <translation>Speichern &amp;unter…</translation>
        </message>
        <message>
            <source>as the source</source>
            <translation>wie die Quelle</translation>
        </message>
        <message>
            <source>None</source>
            <translation>Keiner</translation>
        </message>
        <message>
            <source>As the preset says</source>
            <translation>Wie die Vorgabe</translation>
        </message>
        <message>
            <source>Constant quality</source>
            <translation>Gleiche Qualität</translation>
        </message>
        <message>
            <source>Average bitrate</source>
            <translation>Mittlere Bitrate</translation>
        </message>
        <message>
            <source>%1 long</source>
            <translation>%1 lang</translation>
        </message>
        <message>
            <source>Very roughly %1</source>
            <translation>Sehr grob %1</translation>
        </message>
        <message>
            <source>About %1</source>
            <translation>Etwa %1</translation>
        </message>
        <message>
            <source>%1 free</source>
            <translation>%1 frei</translation>
        </message>
        <message>
            <source>The folder is not there</source>
            <translation>Den Ordner gibt es nicht</translation>
        </message>
        <message>
            <source>This may be too much for the disk</source>
            <translation>Das kann für den Datenträger zu viel sein</translation>
        </message>
        <message>
            <source>A file of this name is there already</source>
            <translation>Eine Datei dieses Namens gibt es schon</translation>
        </message>
        <message>
            <source>Save the export as</source>
            <translation>Export speichern unter</translation>
        </message>
        <message>
            <source>Files of this preset (*.%1)</source>
            <translation>Dateien dieser Vorgabe (*.%1)</translation>
        </message>
        <message>
            <source>All files (*)</source>
            <translation>Alle Dateien (*)</translation>
        </message>
        <message>
            <source>Reset the custom settings</source>
            <translation>Eigene Einstellungen zurücksetzen</translation>
        </message>
    </context>
    <context>
        <name>Dialog::SourceMedia</name>
        <message>
            <source>Start</source>
            <translation>Anfang</translation>
        </message>
        <message>
            <source>End</source>
            <translation>Ende</translation>
        </message>
        <message>
            <source>There is nothing in it to export</source>
            <translation>Darin ist nichts zu exportieren</translation>
        </message>
        <message numerus="yes">
            <source>%1 and %n more</source>
            <translation>
                <numerusform>%1 und %n weitere</numerusform>
                <numerusform>%1 und %n weitere</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 × %2</source>
            <translation>%1 × %2</translation>
        </message>
        <message>
            <source>no picture</source>
            <translation>kein Bild</translation>
        </message>
        <message>
            <source>no sound</source>
            <translation>kein Ton</translation>
        </message>
    </context>
    <context>
        <name>main</name>
        <message>
            <source>Exports media files, or a timeline, from a window.</source>
            <translation>Exportiert Mediendateien oder eine Timeline in einem Fenster.</translation>
        </message>
        <message>
            <source>Media files, one after the other, or one timeline.</source>
            <translation>Mediendateien, eine nach der anderen, oder eine Timeline.</translation>
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
            <translation>Kleine Dateien</translation>
        </message>
        <message>
            <source>editing</source>
            <translation>Schnitt</translation>
        </message>
        <message>
            <source>high-dynamic-range</source>
            <translation>Hoher Dynamikumfang</translation>
        </message>
        <message>
            <source>two-pass</source>
            <translation>Zwei Durchläufe</translation>
        </message>
        <message>
            <source>audio</source>
            <translation>Ton</translation>
        </message>
        <message>
            <source>high</source>
            <translation>Hoch</translation>
        </message>
        <message>
            <source>medium</source>
            <translation>Mittel</translation>
        </message>
        <message>
            <source>low</source>
            <translation>Niedrig</translation>
        </message>
        <message>
            <source>best</source>
            <translation>Beste</translation>
        </message>
        <message>
            <source>draft</source>
            <translation>Entwurf</translation>
        </message>
        <message>
            <source>mp4-h264-2160p</source>
            <translation>MP4 (H.264 und AAC), bis 2160p</translation>
        </message>
        <message>
            <source>mp4-h264-1440p</source>
            <translation>MP4 (H.264 und AAC), bis 1440p</translation>
        </message>
        <message>
            <source>mp4-h264-1080p</source>
            <translation>MP4 (H.264 und AAC), bis 1080p</translation>
        </message>
        <message>
            <source>mp4-h264-720p</source>
            <translation>MP4 (H.264 und AAC), bis 720p</translation>
        </message>
        <message>
            <source>mp4-h264-480p</source>
            <translation>MP4 (H.264 und AAC), bis 480p</translation>
        </message>
        <message>
            <source>mp4-h264-source</source>
            <translation>MP4 (H.264 und AAC), Größe der Quelle, hohe Qualität</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p</source>
            <translation>MP4 (HEVC und AAC), bis 1080p</translation>
        </message>
        <message>
            <source>mp4-mpeg4-720p</source>
            <translation>MP4 (MPEG-4 Visual und AAC), bis 720p, für alte Abspielgeräte</translation>
        </message>
        <message>
            <source>webm-vp9-2160p</source>
            <translation>WebM (VP9 und Opus), bis 2160p</translation>
        </message>
        <message>
            <source>webm-vp9-1080p</source>
            <translation>WebM (VP9 und Opus), bis 1080p</translation>
        </message>
        <message>
            <source>webm-vp9-720p</source>
            <translation>WebM (VP9 und Opus), bis 720p</translation>
        </message>
        <message>
            <source>mkv-hevc-2160p</source>
            <translation>Matroska (HEVC und AAC), bis 2160p</translation>
        </message>
        <message>
            <source>mkv-hevc-1080p</source>
            <translation>Matroska (HEVC und AAC), bis 1080p</translation>
        </message>
        <message>
            <source>mkv-ffv1-flac</source>
            <translation>Matroska (FFV1 und FLAC), verlustfreies Archiv</translation>
        </message>
        <message>
            <source>mov-prores-2160p</source>
            <translation>QuickTime (ProRes 422 HQ und PCM), bis 2160p</translation>
        </message>
        <message>
            <source>mov-prores-1080p</source>
            <translation>QuickTime (ProRes 422 HQ und PCM), bis 1080p</translation>
        </message>
        <message>
            <source>mp4-hevc-2160p-hdr</source>
            <translation>MP4 (HEVC 10 Bit und AAC), bis 2160p, behält den hohen Dynamikumfang</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p-hdr</source>
            <translation>MP4 (HEVC 10 Bit und AAC), bis 1080p, behält den hohen Dynamikumfang</translation>
        </message>
        <message>
            <source>webm-vp9-2160p-hdr</source>
            <translation>WebM (VP9 10 Bit und Opus), bis 2160p, behält den hohen Dynamikumfang</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-hdr</source>
            <translation>WebM (VP9 10 Bit und Opus), bis 1080p, behält den hohen Dynamikumfang</translation>
        </message>
        <message>
            <source>mp4-av1-2160p-hdr</source>
            <translation>MP4 (AV1 10 Bit und AAC), bis 2160p, behält den hohen Dynamikumfang</translation>
        </message>
        <message>
            <source>mp4-av1-1080p-hdr</source>
            <translation>MP4 (AV1 10 Bit und AAC), bis 1080p, behält den hohen Dynamikumfang</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-2pass</source>
            <translation>MP4 (H.264 und AAC), bis 1080p, zwei Durchläufe</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-6mbps-2pass</source>
            <translation>MP4 (H.264 und AAC), bis 1080p, 6 Mbit/s in zwei Durchläufen</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-constant-2pass</source>
            <translation>MP4 (H.264 und AAC), bis 1080p, konstante Bitrate in zwei Durchläufen</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p-2pass</source>
            <translation>MP4 (HEVC und AAC), bis 1080p, zwei Durchläufe</translation>
        </message>
        <message>
            <source>mp4-mpeg4-720p-2pass</source>
            <translation>MP4 (MPEG-4 Visual und AAC), bis 720p, für alte Abspielgeräte, zwei Durchläufe</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-2pass</source>
            <translation>WebM (VP9 und Opus), bis 1080p, zwei Durchläufe</translation>
        </message>
        <message>
            <source>m4a-aac</source>
            <translation>M4A (AAC), nur Ton</translation>
        </message>
        <message>
            <source>mp3</source>
            <translation>MP3, nur Ton</translation>
        </message>
        <message>
            <source>flac</source>
            <translation>FLAC, nur Ton, verlustfrei</translation>
        </message>
        <message>
            <source>wav</source>
            <translation>WAV (PCM), nur Ton, verlustfrei</translation>
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
            <translation>MP4 (H.264 und AAC), bis 1080p, 60 Bilder je Sekunde</translation>
        </message>
        <message>
            <source>mp4-h264-vertical</source>
            <translation>MP4 (H.264 und AAC), hochkant 1080x1920</translation>
        </message>
        <message>
            <source>mp4-h264-square</source>
            <translation>MP4 (H.264 und AAC), quadratisch 1080x1080</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-silent</source>
            <translation>MP4 (H.264), bis 1080p, nur Bild</translation>
        </message>
        <message>
            <source>mov-h264-2160p</source>
            <translation>QuickTime (H.264 und AAC), bis 2160p</translation>
        </message>
        <message>
            <source>mov-h264-1080p</source>
            <translation>QuickTime (H.264 und AAC), bis 1080p</translation>
        </message>
        <message>
            <source>mkv-h264-2160p</source>
            <translation>Matroska (H.264 und AAC), bis 2160p</translation>
        </message>
        <message>
            <source>mkv-h264-1080p</source>
            <translation>Matroska (H.264 und AAC), bis 1080p</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p-10bit</source>
            <translation>MP4 (HEVC 10 Bit und AAC), bis 1080p</translation>
        </message>
        <message>
            <source>mkv-hevc-1080p-10bit</source>
            <translation>Matroska (HEVC 10 Bit und AAC), bis 1080p</translation>
        </message>
        <message>
            <source>mp4-av1-2160p</source>
            <translation>MP4 (AV1 und Opus), bis 2160p</translation>
        </message>
        <message>
            <source>mp4-av1-1080p</source>
            <translation>MP4 (AV1 und Opus), bis 1080p</translation>
        </message>
        <message>
            <source>webm-av1-2160p</source>
            <translation>WebM (AV1 und Opus), bis 2160p</translation>
        </message>
        <message>
            <source>webm-av1-1080p</source>
            <translation>WebM (AV1 und Opus), bis 1080p</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-silent</source>
            <translation>WebM (VP9), bis 1080p, nur Bild</translation>
        </message>
        <message>
            <source>mov-dnxhd-2160p</source>
            <translation>QuickTime (DNxHR HQ und PCM), bis 2160p</translation>
        </message>
        <message>
            <source>mov-dnxhd-1080p</source>
            <translation>QuickTime (DNxHR HQ und PCM), bis 1080p</translation>
        </message>
        <message>
            <source>mov-prores-2160p-4444</source>
            <translation>QuickTime (ProRes 4444 und PCM), bis 2160p, behält die Durchsichtigkeit</translation>
        </message>
        <message>
            <source>mov-prores-1080p-4444</source>
            <translation>QuickTime (ProRes 4444 und PCM), bis 1080p, behält die Durchsichtigkeit</translation>
        </message>
        <message>
            <source>mov-prores-1080p-silent</source>
            <translation>QuickTime (ProRes 422 HQ), bis 1080p, nur Bild</translation>
        </message>
        <message>
            <source>opus</source>
            <translation>Opus, nur Ton</translation>
        </message>
        <message>
            <source>ogg-vorbis</source>
            <translation>Ogg (Vorbis), nur Ton</translation>
        </message>
        <message>
            <source>m4a-alac</source>
            <translation>M4A (ALAC), nur Ton, verlustfrei</translation>
        </message>
        <message>
            <source>ac3</source>
            <translation>AC-3, 5.1 Kanäle, nur Ton</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-alpha</source>
            <translation>WebM (VP9 und Opus), bis 1080p, behält die Durchsichtigkeit</translation>
        </message>
        <message>
            <source>gif-gif-480p</source>
            <translation>GIF, bis 480p, nur Bild</translation>
        </message>
        <message>
            <source>gif-gif-240p</source>
            <translation>GIF, bis 240p, nur Bild</translation>
        </message>
    </context>
    <context>
        <name>ExportCore::ExportJob</name>
        <message>
            <source>The preset is %1, %2</source>
            <translation>Die Vorgabe ist %1, %2</translation>
        </message>
        <message>
            <source>The inputs end before the out point, at %1: so does the file</source>
            <translation>Die Quellen enden vor dem Out-Punkt, bei %1: die Datei auch</translation>
        </message>
        <message>
            <source>There is no sound whose loudness could be changed</source>
            <translation>Es gibt keinen Ton, dessen Lautheit sich ändern ließe</translation>
        </message>
        <message>
            <source> left out: the file has no place for it</source>
            <translation> weggelassen: Die Datei hat keinen Platz dafür</translation>
        </message>
        <message>
            <source>The timeline's name is</source>
            <translation>Der Name der Timeline wird</translation>
        </message>
        <message>
            <source>Each of the timeline's markers is</source>
            <translation>Jede Marke der Timeline wird</translation>
        </message>
        <message>
            <source>The timeline's time code is</source>
            <translation>Der Timecode der Timeline wird</translation>
        </message>
        <message>
            <source>Subtitles that show nothing in the range are left out</source>
            <translation>Untertitel, die in diesem Bereich nichts zeigen, werden weggelassen</translation>
        </message>
        <message>
            <source>None of the inputs has a picture: what is shown is black</source>
            <translation>Keine der Quellen hat ein Bild: zu sehen ist Schwarz</translation>
        </message>
        <message>
            <source>None of the inputs has sound: what is heard is silence</source>
            <translation>Keine der Quellen hat Ton: zu hören ist Stille</translation>
        </message>
        <message>
            <source>The folder of the finished file could not be brought to the disk</source>
            <translation>Der Ordner der fertigen Datei ließ sich nicht auf den Datenträger schreiben</translation>
        </message>
    </context>
</TS>
