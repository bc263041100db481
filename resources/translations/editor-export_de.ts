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
        <message>
            <source>Write the file with its whole folder, or choose it with “Save as”</source>
            <translation>Die Datei mit ihrem ganzen Ordner schreiben oder mit „Speichern unter“ wählen</translation>
        </message>
        <message>
            <source>The file is what is exported; save it under another name</source>
            <translation>Die Datei ist die Quelle selbst; unter einem anderen Namen speichern</translation>
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
            <translation>&amp;Öffnen…</translation>
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
            <source>Another export in the list is to become “%1” as well. “%2”, which is there already, is replaced, too.</source>
            <translation>Ein anderer Export in der Liste soll auch „%1“ werden. „%2“ gibt es schon und wird ebenfalls ersetzt.</translation>
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
            <source>Go on</source>
            <translation>Weitermachen</translation>
        </message>
        <message>
            <source>Close</source>
            <translation>Schließen</translation>
        </message>
        <message>
            <source>An export is running, and others wait. Stop it and close? Nothing of it is kept, and the others are not made.</source>
            <translation>Ein Export läuft, und andere warten. Abbrechen und schließen? Nichts davon bleibt, und die anderen werden nicht ausgeführt.</translation>
        </message>
        <message>
            <source>An export is running. Stop it and close? Nothing of it is kept.</source>
            <translation>Ein Export läuft. Abbrechen und schließen? Nichts davon bleibt.</translation>
        </message>
        <message>
            <source>Stop and close</source>
            <translation>Abbrechen und schließen</translation>
        </message>
        <message>
            <source>takes %1, at a rough guess</source>
            <comment>a time</comment>
            <translation>dauert %1, grob geschätzt</translation>
        </message>
        <message>
            <source>Looking what stands at the file's place…</source>
            <translation>Es wird nachgesehen, was am Ort der Datei steht …</translation>
        </message>
        <message>
            <source>The folder of “%1” does not answer. Check its disk or share, or save the export in another folder.</source>
            <translation>Der Ordner von „%1“ antwortet nicht. Datenträger oder Freigabe prüfen oder den Export in einem anderen Ordner speichern.</translation>
        </message>
        <message>
            <source>“%1” is one of the inputs, and stays. Save the export under another name.</source>
            <translation>„%1“ ist eine der Quellen und bleibt. Den Export unter einem anderen Namen speichern.</translation>
        </message>
        <message numerus="yes">
            <source>%n export(s) were not started. Close without them?</source>
            <translation>
                <numerusform>Ein Export wurde nicht gestartet. Ohne ihn schließen?</numerusform>
                <numerusform>%n Exporte wurden nicht gestartet. Ohne sie schließen?</numerusform>
            </translation>
        </message>
        <message>
            <source>“%1” is a folder. Write the name of a file in it.</source>
            <translation>„%1“ ist ein Ordner. Schreiben Sie den Namen einer Datei darin.</translation>
        </message>
        <message>
            <source>Look in a folder…</source>
            <translation>In einem Ordner suchen…</translation>
        </message>
        <message>
            <source>Folder in which the missing media are looked for</source>
            <translation>Ordner, in dem die fehlenden Medien gesucht werden</translation>
        </message>
        <message>
            <source>The folder of “%1” takes no files. Save the export in another folder.</source>
            <translation>Der Ordner von „%1“ nimmt keine Dateien an. Speichern Sie den Export in einem anderen Ordner.</translation>
        </message>
        <message>
            <source>“%1” has changed since it was opened, and is opened anew. Look at it, and export again.</source>
            <translation>„%1“ hat sich seit dem Öffnen geändert und wird neu geöffnet. Sehen Sie es sich an und exportieren Sie dann noch einmal.</translation>
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
        <message>
            <source>Done, with warnings</source>
            <translation>Fertig, mit Warnungen</translation>
        </message>
    </context>
    <context>
        <name>Dialog::JobPane</name>
        <message>
            <source>&amp;Jobs:</source>
            <translation>A&amp;ufträge:</translation>
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
        <message>
            <source>It begins when the queue is started.</source>
            <translation>Er beginnt, wenn die Warteschlange gestartet wird.</translation>
        </message>
        <message>
            <source>Change…</source>
            <translation>Ändern…</translation>
        </message>
        <message>
            <source>Shows above what was ordered, to be changed and exported again</source>
            <translation>Zeigt oben, was bestellt war, um es zu ändern und noch einmal zu exportieren</translation>
        </message>
        <message>
            <source>Move up</source>
            <translation>Nach oben</translation>
        </message>
        <message>
            <source>Move down</source>
            <translation>Nach unten</translation>
        </message>
        <message>
            <source>Move &amp;up</source>
            <translation>Nach &amp;oben</translation>
        </message>
        <message>
            <source>Move &amp;down</source>
            <translation>Nach &amp;unten</translation>
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
        <message>
            <source>Made in %1. Read back to its last byte.</source>
            <translation>In %1 erstellt. Bis zum letzten Byte zurückgelesen.</translation>
        </message>
        <message numerus="yes">
            <source>and %n more, in the details</source>
            <translation>
                <numerusform>und eines mehr, in den Einzelheiten</numerusform>
                <numerusform>und %n mehr, in den Einzelheiten</numerusform>
            </translation>
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
            <translation>&amp;Format:</translation>
        </message>
        <message>
            <source>&amp;Search:</source>
            <translation>Su&amp;che:</translation>
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
        <message>
            <source>“%1” stays chosen.</source>
            <translation>„%1“ bleibt gewählt.</translation>
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
            <translation>Eigene Einste&amp;llungen</translation>
        </message>
        <message>
            <source>Si&amp;ze:</source>
            <translation>&amp;Größe:</translation>
        </message>
        <message>
            <source>Frame &amp;rate:</source>
            <translation>Bild&amp;rate:</translation>
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
            <translation>Out-&amp;Punkt:</translation>
        </message>
        <message>
            <source>End</source>
            <translation>Ende</translation>
        </message>
        <message>
            <source>&amp;First marker:</source>
            <translation>&amp;Von Marke:</translation>
        </message>
        <message>
            <source>Endin&amp;g marker:</source>
            <translation>B&amp;is Marke:</translation>
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
            <translation>Speic&amp;hern unter…</translation>
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
        <message>
            <source>Channels:</source>
            <translation>Kanäle:</translation>
        </message>
        <message>
            <source>First pass:</source>
            <translation>Erster Durchlauf:</translation>
        </message>
        <message>
            <source>Mono</source>
            <translation>Mono</translation>
        </message>
        <message>
            <source>Stereo</source>
            <translation>Stereo</translation>
        </message>
        <message>
            <source>Quadraphonic</source>
            <translation>Quadrofonie</translation>
        </message>
        <message>
            <source>Whole pictures</source>
            <translation>Ganze Bilder</translation>
        </message>
        <message>
            <source>Pictures of half the size</source>
            <translation>Bilder halber Größe</translation>
        </message>
        <message>
            <source>The folder does not answer</source>
            <translation>Der Ordner antwortet nicht</translation>
        </message>
        <message>
            <source>This is one of the inputs</source>
            <translation>Das ist eine der Quellen</translation>
        </message>
        <message>
            <source>This is a folder; write the name of a file in it</source>
            <translation>Das ist ein Ordner; schreiben Sie den Namen einer Datei darin</translation>
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
        <message>
            <source>Chapter %1</source>
            <translation>Kapitel %1</translation>
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
        <message>
            <source>Shows this.</source>
            <translation>Zeigt diese Hilfe.</translation>
        </message>
        <message>
            <source>Shows the version.</source>
            <translation>Zeigt die Version.</translation>
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
            <source>pictures</source>
            <translation>Einzelbilder</translation>
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
            <source>webp-webp-720p</source>
            <translation>Animiertes WebP, bis 720p, nur Bild, behält die Durchsichtigkeit</translation>
        </message>
        <message>
            <source>webp-webp-480p</source>
            <translation>Animiertes WebP, bis 480p, nur Bild, behält die Durchsichtigkeit</translation>
        </message>
        <message>
            <source>gif-gif-480p</source>
            <translation>GIF, bis 480p, nur Bild</translation>
        </message>
        <message>
            <source>gif-gif-240p</source>
            <translation>GIF, bis 240p, nur Bild</translation>
        </message>
        <message>
            <source>png-sequence</source>
            <translation>PNG-Bilder, nummeriert</translation>
        </message>
        <message>
            <source>png-sequence-alpha</source>
            <translation>PNG-Bilder, nummeriert, behält die Durchsichtigkeit</translation>
        </message>
        <message>
            <source>jpeg-sequence</source>
            <translation>JPEG-Bilder, nummeriert</translation>
        </message>
        <message>
            <source>own-presets</source>
            <translation>Eigene Vorgaben</translation>
        </message>
        <message>
            <source>demo</source>
            <translation>Vorführung</translation>
        </message>
    </context>
    <context>
        <name>ExportCore::ExportRun</name>
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
            <source>The title is</source>
            <translation>Der Titel wird</translation>
        </message>
        <message>
            <source>Each of the timeline's markers is</source>
            <translation>Jede Marke der Timeline wird</translation>
        </message>
        <message>
            <source>Each chapter is</source>
            <translation>Jedes Kapitel wird</translation>
        </message>
        <message>
            <source>The timeline's time code is</source>
            <translation>Der Timecode der Timeline wird</translation>
        </message>
        <message>
            <source>The time code is</source>
            <translation>Der Timecode wird</translation>
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
    <context>
        <name>Dialog::Sentence</name>
        <message>
            <source>%1; did you mean %2?</source>
            <translation>%1; ist %2 gemeint?</translation>
        </message>
        <message>
            <source>%1; what comes before can be exported with --out %2</source>
            <translation>%1; was davor liegt, lässt sich mit dem Out-Punkt %2 exportieren</translation>
        </message>
        <message>
            <source>%1 (whichever export this comes from, each that runs is ended)</source>
            <translation>%1 (von welchem Export es auch kommt: jeder laufende wird beendet)</translation>
        </message>
        <message>
            <source>Cannot read "%1": %2</source>
            <translation>„%1“ lässt sich nicht lesen: %2</translation>
        </message>
        <message>
            <source>Cannot open "%1": %2</source>
            <translation>„%1“ lässt sich nicht öffnen: %2</translation>
        </message>
        <message>
            <source>Cannot decode "%1": no decoder for %2</source>
            <translation>„%1“ lässt sich nicht decodieren: Es gibt keinen Decoder für %2</translation>
        </message>
        <message>
            <source>Cannot write "%1": %2</source>
            <translation>„%1“ lässt sich nicht schreiben: %2</translation>
        </message>
        <message>
            <source>Cannot export "%1" beside other inputs: a timeline is exported alone</source>
            <translation>„%1“ lässt sich nicht neben anderen Quellen exportieren: Eine Timeline wird allein exportiert</translation>
        </message>
        <message>
            <source>Cannot export "%1": %2</source>
            <translation>„%1“ lässt sich nicht exportieren: %2</translation>
        </message>
        <message>
            <source>Cannot make a file beside "%1": %2</source>
            <translation>Neben „%1“ lässt sich keine Datei anlegen: %2</translation>
        </message>
        <message>
            <source>Cannot put the finished file at "%1": %2</source>
            <translation>Die fertige Datei lässt sich nicht nach „%1“ bringen: %2</translation>
        </message>
        <message>
            <source>Cannot write "%1" to the disk: %2</source>
            <translation>„%1“ lässt sich nicht auf den Datenträger schreiben: %2</translation>
        </message>
        <message>
            <source>The unfinished file of "%1" was removed or replaced</source>
            <translation>Die unfertige Datei von „%1“ wurde entfernt oder ersetzt</translation>
        </message>
        <message>
            <source>The output has become one of the inputs meanwhile</source>
            <translation>Das Ziel ist inzwischen eine der Quellen geworden</translation>
        </message>
        <message>
            <source>The output file "%1" cannot be written: %2</source>
            <translation>Die Datei „%1“ lässt sich nicht schreiben: %2</translation>
        </message>
        <message>
            <source>The output file "%1" cannot be created: %2</source>
            <translation>Die Datei „%1“ lässt sich nicht anlegen: %2</translation>
        </message>
        <message>
            <source>The output file "%1" cannot be closed: %2</source>
            <translation>Die Datei „%1“ lässt sich nicht abschließen: %2</translation>
        </message>
        <message>
            <source>Writing the header of "%1": %2</source>
            <translation>Beim Schreiben des Kopfes von „%1“: %2</translation>
        </message>
        <message>
            <source>Writing to "%1": %2</source>
            <translation>Beim Schreiben von „%1“: %2</translation>
        </message>
        <message>
            <source>Completing "%1": %2</source>
            <translation>Beim Abschließen von „%1“: %2</translation>
        </message>
        <message>
            <source>The file will take %1, but beside "%2" only %3 are free</source>
            <translation>Die Datei wird %1 belegen, aber neben „%2“ sind nur %3 frei</translation>
        </message>
        <message>
            <source>The finished file was checked and found wrong: %1</source>
            <translation>Die fertige Datei wurde geprüft und ist falsch: %1</translation>
        </message>
        <message>
            <source>The finished file cannot be read to its end: %1</source>
            <translation>Die fertige Datei lässt sich nicht bis zum Ende lesen: %1</translation>
        </message>
        <message>
            <source>The finished file cannot be read: %1</source>
            <translation>Die fertige Datei lässt sich nicht lesen: %1</translation>
        </message>
        <message>
            <source>The export did not start within %1: %2</source>
            <translation>Der Export hat nicht innerhalb von %1 begonnen: %2</translation>
        </message>
        <message>
            <source>The export did not start within %1</source>
            <translation>Der Export hat nicht innerhalb von %1 begonnen</translation>
        </message>
        <message>
            <source>The export made no progress for %1: %2</source>
            <translation>Der Export kam %1 lang nicht voran: %2</translation>
        </message>
        <message>
            <source>The export made no progress for %1</source>
            <translation>Der Export kam %1 lang nicht voran</translation>
        </message>
        <message>
            <source>Checking the finished file made no progress for %1: %2</source>
            <translation>Die Prüfung der fertigen Datei kam %1 lang nicht voran: %2</translation>
        </message>
        <message>
            <source>The export did not stop within %1: %2</source>
            <translation>Der Export hat nicht innerhalb von %1 angehalten: %2</translation>
        </message>
        <message>
            <source>Opening "%1" does not come to an end</source>
            <translation>Das Öffnen von „%1“ kommt zu keinem Ende</translation>
        </message>
        <message>
            <source>Reading "%1" does not come back</source>
            <translation>Das Lesen von „%1“ kehrt nicht zurück</translation>
        </message>
        <message>
            <source>Making a file beside "%1" does not come to an end</source>
            <translation>Das Anlegen einer Datei neben „%1“ kommt zu keinem Ende</translation>
        </message>
        <message>
            <source>Encoding, or writing "%1", does not come back</source>
            <translation>Das Encodieren oder das Schreiben von „%1“ kehrt nicht zurück</translation>
        </message>
        <message>
            <source>The in point %1 lies outside the inputs, which last %2</source>
            <translation>Der In-Punkt %1 liegt außerhalb der Quellen, die %2 dauern</translation>
        </message>
        <message>
            <source>Nothing is left to export: the preset "%1" has %2</source>
            <translation>Es bleibt nichts zu exportieren: Die Vorgabe „%1“ hat %2</translation>
        </message>
        <message>
            <source>Cannot load the presets: %1</source>
            <translation>Die Vorgaben lassen sich nicht laden: %1</translation>
        </message>
        <message>
            <source>Cannot set %1 to "%2": %3</source>
            <translation>%1 lässt sich nicht auf „%2“ setzen: %3</translation>
        </message>
        <message>
            <source>Cannot set %1: %2</source>
            <translation>Nicht möglich, %1: %2</translation>
        </message>
        <message>
            <source>size</source>
            <translation>Größe</translation>
        </message>
        <message>
            <source>frame-rate</source>
            <translation>Bildrate</translation>
        </message>
        <message>
            <source>bitrate</source>
            <translation>Bitrate</translation>
        </message>
        <message>
            <source>quality</source>
            <translation>Qualität</translation>
        </message>
        <message>
            <source>first-pass</source>
            <translation>Erster Durchlauf</translation>
        </message>
        <message>
            <source>sample-rate</source>
            <translation>Abtastrate</translation>
        </message>
        <message>
            <source>channels</source>
            <translation>Kanäle</translation>
        </message>
        <message>
            <source>audio-bitrate</source>
            <translation>Tonbitrate</translation>
        </message>
        <message>
            <source>quality to %1</source>
            <translation>Qualität %1</translation>
        </message>
        <message>
            <source>audio-bitrate to %1</source>
            <translation>Tonbitrate %1</translation>
        </message>
        <message>
            <source>bitrate to %1</source>
            <translation>Bitrate %1</translation>
        </message>
        <message>
            <source>a width of %1</source>
            <translation>eine Breite von %1</translation>
        </message>
        <message>
            <source>a height of %1</source>
            <translation>eine Höhe von %1</translation>
        </message>
        <message>
            <source>a size of %1</source>
            <translation>eine Größe von %1</translation>
        </message>
        <message>
            <source>write pixels, as 1280x720</source>
            <translation>Pixel wie 1280x720 schreiben</translation>
        </message>
        <message>
            <source>%1 is odd, and encoders need even sides</source>
            <translation>%1 ist ungerade, und Encoder brauchen gerade Seiten</translation>
        </message>
        <message>
            <source>a picture has at least 2x2 pixels</source>
            <translation>ein Bild hat mindestens 2x2 Pixel</translation>
        </message>
        <message>
            <source>no side is longer than %1 pixels</source>
            <translation>keine Seite ist länger als %1 Pixel</translation>
        </message>
        <message>
            <source>the preset "%1" is for pictures up to %2</source>
            <translation>die Vorgabe „%1“ ist für Bilder bis %2</translation>
        </message>
        <message>
            <source>%1 takes no side below %2</source>
            <translation>%1 nimmt keine Seite unter %2</translation>
        </message>
        <message>
            <source>%1 is too small for %2</source>
            <translation>%1 ist zu klein für %2</translation>
        </message>
        <message>
            <source>write frames a second, as 25, 29.97 or 30000/1001, film, pal, ntsc, ntsc-film or source</source>
            <translation>Bilder je Sekunde wie 25, 29.97 oder 30000/1001 schreiben, film, pal, ntsc, ntsc-film oder source</translation>
        </message>
        <message>
            <source>frame rates go from 1 to %1</source>
            <translation>Bildraten gehen von 1 bis %1</translation>
        </message>
        <message>
            <source>%1 does not take %2, only %3</source>
            <translation>%1 nimmt nicht %2, nur %3</translation>
        </message>
        <message>
            <source>%1 does not take %2</source>
            <translation>%1 nimmt nicht %2</translation>
        </message>
        <message>
            <source>%1 takes %2 to %3 bit/s</source>
            <translation>%1 nimmt %2 bis %3 bit/s</translation>
        </message>
        <message>
            <source>%1 takes %2 bit/s</source>
            <translation>%1 nimmt %2 bit/s</translation>
        </message>
        <message>
            <source>%1 takes whole numbers</source>
            <translation>%1 nimmt ganze Zahlen</translation>
        </message>
        <message>
            <source>%1 takes %2 to %3</source>
            <translation>%1 nimmt %2 bis %3</translation>
        </message>
        <message>
            <source>write bits a second, as 2500000, 2500k or 2.5M</source>
            <translation>Bits je Sekunde wie 2500000, 2500k oder 2.5M schreiben</translation>
        </message>
        <message>
            <source>bitrates go from 1 to %1 bit/s</source>
            <translation>Bitraten gehen von 1 bis %1 bit/s</translation>
        </message>
        <message>
            <source>the folder "%1" may not be listed: %2</source>
            <translation>der Inhalt des Ordners „%1“ darf nicht gelesen werden: %2</translation>
        </message>
        <message>
            <source>the folder "%1": %2</source>
            <translation>der Ordner „%1“: %2</translation>
        </message>
        <message>
            <source>"%1" is not a folder</source>
            <translation>„%1“ ist kein Ordner</translation>
        </message>
        <message>
            <source>the preset "%1" writes .%2, not .%3; no preset writes that</source>
            <translation>die Vorgabe „%1“ schreibt .%2, nicht .%3; das schreibt keine</translation>
        </message>
        <message>
            <source>it holds neither picture nor sound that can be decoded (%1)</source>
            <translation>sie enthält weder Bild noch Ton, die sich decodieren lassen (%1)</translation>
        </message>
        <message>
            <source>it holds neither picture nor sound that can be decoded</source>
            <translation>sie enthält weder Bild noch Ton, die sich decodieren lassen</translation>
        </message>
        <message>
            <source>it takes more memory than there is</source>
            <translation>sie braucht mehr Speicher, als da ist</translation>
        </message>
        <message>
            <source>its pictures or sound stand in another file, which it names</source>
            <translation>Bild oder Ton stehen in einer anderen Datei, die sie nennt</translation>
        </message>
        <message>
            <source>it is an animated WebP file, a kind that is written and not read</source>
            <translation>es ist eine animierte WebP-Datei; solche werden geschrieben, aber nicht gelesen</translation>
        </message>
        <message>
            <source>&quot;%1&quot; would become larger than 4 GiB, which a WebP file cannot be: a shorter range, a lower quality or smaller pictures fit into one</source>
            <translation>„%1“ würde größer als 4 GiB, was eine WebP-Datei nicht sein kann: Ein kürzerer Bereich, eine geringere Qualität oder kleinere Bilder passen hinein</translation>
        </message>
        <message>
            <source>it is a folder</source>
            <translation>das ist ein Ordner</translation>
        </message>
        <message>
            <source>it is a pipe</source>
            <translation>das ist eine Pipe</translation>
        </message>
        <message>
            <source>it is a socket</source>
            <translation>das ist ein Socket</translation>
        </message>
        <message>
            <source>it is a device</source>
            <translation>das ist ein Gerät</translation>
        </message>
        <message>
            <source>it is not a regular file</source>
            <translation>das ist keine gewöhnliche Datei</translation>
        </message>
        <message>
            <source>it is empty</source>
            <translation>sie ist leer</translation>
        </message>
        <message>
            <source>it is one of the inputs</source>
            <translation>das ist eine der Quellen</translation>
        </message>
        <message>
            <source>it is one of the timeline's media</source>
            <translation>das ist eines der Medien der Timeline</translation>
        </message>
        <message>
            <source>it exists already (--overwrite replaces it)</source>
            <translation>es gibt sie schon</translation>
        </message>
        <message>
            <source>it does not name a file</source>
            <translation>das ist kein Name einer Datei</translation>
        </message>
        <message>
            <source>it is a link that leads nowhere</source>
            <translation>das ist eine Verknüpfung, die nirgends hinführt</translation>
        </message>
        <message>
            <source>No such file or directory</source>
            <translation>Datei oder Ordner nicht gefunden</translation>
        </message>
        <message>
            <source>Permission denied</source>
            <translation>Zugriff verweigert</translation>
        </message>
        <message>
            <source>Read-only file system</source>
            <translation>Nur lesbares Dateisystem</translation>
        </message>
        <message>
            <source>No space left on device</source>
            <translation>Kein Platz mehr auf dem Datenträger</translation>
        </message>
        <message>
            <source>Disk quota exceeded</source>
            <translation>Kontingent überschritten</translation>
        </message>
        <message>
            <source>File too large</source>
            <translation>Die Datei ist zu groß</translation>
        </message>
        <message>
            <source>File name too long</source>
            <translation>Der Dateiname ist zu lang</translation>
        </message>
        <message>
            <source>Input/output error</source>
            <translation>Ein-/Ausgabefehler</translation>
        </message>
        <message>
            <source>Cannot allocate memory</source>
            <translation>Kein Speicher verfügbar</translation>
        </message>
        <message>
            <source>Invalid data found when processing input</source>
            <translation>Die Daten sind ungültig</translation>
        </message>
        <message>
            <source>End of file</source>
            <translation>Ende der Datei</translation>
        </message>
        <message>
            <source>"%1" is damaged at %2: %3</source>
            <translation>„%1“ ist bei %2 beschädigt: %3</translation>
        </message>
        <message>
            <source>"%1" cannot be put on the timeline: it has no length</source>
            <translation>„%1“ lässt sich nicht auf die Timeline legen: Es hat keine Länge</translation>
        </message>
        <message>
            <source>"%1": %2</source>
            <translation>„%1“: %2</translation>
        </message>
        <message>
            <source>left out: %1</source>
            <translation>weggelassen: %1</translation>
        </message>
        <message>
            <source>%1 picture track (%2)</source>
            <translation>%1 Bildspur (%2)</translation>
        </message>
        <message>
            <source>%1 picture tracks (%2)</source>
            <translation>%1 Bildspuren (%2)</translation>
        </message>
        <message>
            <source>%1 sound track (%2)</source>
            <translation>%1 Tonspur (%2)</translation>
        </message>
        <message>
            <source>%1 sound tracks (%2)</source>
            <translation>%1 Tonspuren (%2)</translation>
        </message>
        <message>
            <source>%1 subtitle track (%2)</source>
            <translation>%1 Untertitelspur (%2)</translation>
        </message>
        <message>
            <source>%1 subtitle tracks (%2)</source>
            <translation>%1 Untertitelspuren (%2)</translation>
        </message>
        <message>
            <source>%1 data track (%2)</source>
            <translation>%1 Datenspur (%2)</translation>
        </message>
        <message>
            <source>%1 data tracks (%2)</source>
            <translation>%1 Datenspuren (%2)</translation>
        </message>
        <message>
            <source>%1 attached picture (%2)</source>
            <translation>%1 beigefügtes Bild (%2)</translation>
        </message>
        <message>
            <source>%1 attached pictures (%2)</source>
            <translation>%1 beigefügte Bilder (%2)</translation>
        </message>
        <message>
            <source>%1 attachment (%2)</source>
            <translation>%1 Anlage (%2)</translation>
        </message>
        <message>
            <source>%1 attachments (%2)</source>
            <translation>%1 Anlagen (%2)</translation>
        </message>
        <message>
            <source>%1 chapter</source>
            <translation>%1 Kapitel</translation>
        </message>
        <message>
            <source>%1 chapters</source>
            <translation>%1 Kapitel</translation>
        </message>
        <message>
            <source>tag (%1)</source>
            <translation>Angabe (%1)</translation>
        </message>
        <message>
            <source>tags (%1)</source>
            <translation>Angaben (%1)</translation>
        </message>
        <message>
            <source>title</source>
            <translation>Titel</translation>
        </message>
        <message>
            <source>tags</source>
            <translation>Angaben</translation>
        </message>
        <message>
            <source>Titles of chapters are cut off: the file has no place for such long ones</source>
            <translation>Titel von Kapiteln werden gekürzt: Die Datei hat keinen Platz für so lange</translation>
        </message>
        <message>
            <source>what is missing is black, or what lies on lower tracks where there is something, and silent</source>
            <translation>Fehlendes ist schwarz und still, oder zeigt, was auf unteren Spuren liegt</translation>
        </message>
        <message>
            <source>has no picture: what is shown there is black</source>
            <translation>hat kein Bild: gezeigt wird dort Schwarz</translation>
        </message>
        <message>
            <source>has no sound: what is heard there is silence</source>
            <translation>hat keinen Ton: zu hören ist dort Stille</translation>
        </message>
        <message>
            <source>roughly %1</source>
            <translation>etwa %1</translation>
        </message>
        <message>
            <source>about %1</source>
            <translation>ungefähr %1</translation>
        </message>
        <message>
            <source>The first pass looks at whole pictures in place of halves: %1</source>
            <translation>Der erste Durchgang sieht sich ganze Bilder statt halber an: %1</translation>
        </message>
        <message>
            <source>a side of the picture has less than %1 pixels</source>
            <translation>eine Seite des Bildes hat weniger als %1 Pixel</translation>
        </message>
        <message>
            <source>nobody knows how long the film is</source>
            <translation>niemand weiß, wie lang der Film ist</translation>
        </message>
        <message>
            <source>the film is shorter than %1 seconds</source>
            <translation>der Film ist kürzer als %1 Sekunden</translation>
        </message>
        <message>
            <source>%1 with its options takes no statistics of smaller ones</source>
            <translation>%1 nimmt mit seinen Optionen keine Statistik kleinerer Bilder</translation>
        </message>
        <message>
            <source>%1 language is left out: the inputs' differ</source>
            <translation>Die Sprache %1 wird weggelassen: Die der Quellen sind verschieden</translation>
        </message>
        <message>
            <source>%1 language, %2, is left out: the file has no place for it</source>
            <translation>Die Sprache %1, %2, wird weggelassen: Die Datei hat keinen Platz dafür</translation>
        </message>
        <message>
            <source>The picture's</source>
            <translation>des Bildes</translation>
        </message>
        <message>
            <source>The sound's</source>
            <translation>des Tons</translation>
        </message>
        <message>
            <source>%1; presets that do: %2</source>
            <translation>%1; Vorgaben dafür: %2</translation>
        </message>
        <message>
            <source>the preset &quot;%1&quot; writes .%2, not .%3</source>
            <translation>die Vorgabe „%1“ schreibt .%2, nicht .%3</translation>
        </message>
        <message>
            <source>%1; choose one of the preset's qualities (--quality %2)</source>
            <translation>%1; eine der Qualitäten der Vorgabe wählen: %2</translation>
        </message>
        <message>
            <source>pictures of these names exist already, &quot;%1&quot; to begin with (--overwrite replaces them)</source>
            <translation>Bilder mit diesen Namen gibt es schon, zuerst „%1“</translation>
        </message>
        <message>
            <source>and %1 more (validate tells them all)</source>
            <translation>und %1 mehr</translation>
        </message>
        <message>
            <source>“%1”</source>
            <comment>a preset</comment>
            <translation>„%1“</translation>
        </message>
        <message>
            <source>make it first</source>
            <translation>erst anlegen</translation>
        </message>
        <message>
            <source>name the files in it</source>
            <translation>die Dateien darin nennen</translation>
        </message>
        <message>
            <source>name a file in it</source>
            <translation>eine Datei darin nennen</translation>
        </message>
        <message>
            <source>write what comes out of it to a file</source>
            <translation>schreiben Sie, was herauskommt, in eine Datei</translation>
        </message>
        <message>
            <source>it is not a media file, or its beginning is damaged</source>
            <translation>das ist keine Mediendatei, oder ihr Anfang ist beschädigt</translation>
        </message>
        <message>
            <source>its index is missing: the recording was never finished, or copied in part</source>
            <translation>ihr Index fehlt: die Aufnahme wurde nie beendet oder nur zum Teil kopiert</translation>
        </message>
        <message>
            <source>it is not a media file</source>
            <translation>das ist keine Mediendatei</translation>
        </message>
        <message>
            <source>A picture could not be decoded: %1</source>
            <translation>Ein Bild ließ sich nicht dekodieren: %1</translation>
        </message>
        <message>
            <source>A block of sound could not be decoded: %1</source>
            <translation>Ein Stück Ton ließ sich nicht dekodieren: %1</translation>
        </message>
        <message>
            <source>its picture could not be decoded: %1</source>
            <translation>ihr Bild ließ sich nicht dekodieren: %1</translation>
        </message>
        <message>
            <source>%1, clip "%2": %3 (/%4)</source>
            <translation>%1, Clip „%2“: %3 (/%4)</translation>
        </message>
        <message>
            <source>%1, clip: %2 (/%3)</source>
            <translation>%1, Clip: %2 (/%3)</translation>
        </message>
        <message>
            <source>%1, transition: %2 (/%3)</source>
            <translation>%1, Übergang: %2 (/%3)</translation>
        </message>
        <message>
            <source>%1, stack: %2 (/%3)</source>
            <translation>%1, Stapel: %2 (/%3)</translation>
        </message>
        <message>
            <source>%1, track: %2 (/%3)</source>
            <translation>%1, Spur: %2 (/%3)</translation>
        </message>
        <message>
            <source>%1, clip "%2": %3</source>
            <translation>%1, Clip „%2“: %3</translation>
        </message>
        <message>
            <source>%1, transition "%2": %3</source>
            <translation>%1, Übergang „%2“: %3</translation>
        </message>
        <message>
            <source>%1, stack "%2": %3</source>
            <translation>%1, Stapel „%2“: %3</translation>
        </message>
        <message>
            <source>%1, track "%2": %3</source>
            <translation>%1, Spur „%2“: %3</translation>
        </message>
        <message>
            <source>stack</source>
            <translation>Stapel</translation>
        </message>
        <message>
            <source>track</source>
            <translation>Spur</translation>
        </message>
        <message>
            <source>the effect "%1" is not known and is left out</source>
            <translation>der Effekt „%1“ ist nicht bekannt und wird weggelassen</translation>
        </message>
        <message>
            <source>it has no pictures, and its place in a track of pictures stays empty</source>
            <translation>er hat keine Bilder, und sein Platz in einer Bildspur bleibt leer</translation>
        </message>
        <message>
            <source>it has no sound, and its place in a sound track stays silent</source>
            <translation>er hat keinen Ton, und sein Platz in einer Tonspur bleibt still</translation>
        </message>
        <message>
            <source>transitions of the type "%1" are made as dissolves</source>
            <translation>Übergänge der Art „%1“ werden als Überblendungen ausgeführt</translation>
        </message>
        <message>
            <source>its media "%1" lasts %2</source>
            <translation>seine Mediendatei „%1“ dauert %2</translation>
        </message>
        <message>
            <source>its media "%1" cannot be opened: %2</source>
            <translation>seine Mediendatei „%1“ lässt sich nicht öffnen: %2</translation>
        </message>
        <message>
            <source>its media "%1" has no pictures</source>
            <translation>seine Mediendatei „%1“ hat keine Bilder</translation>
        </message>
        <message>
            <source>its media "%1" has no sound</source>
            <translation>seine Mediendatei „%1“ hat keinen Ton</translation>
        </message>
        <message>
            <source>the clip goes %1 before its beginning and %2</source>
            <translation>der Clip reicht %1 vor ihren Anfang und %2</translation>
        </message>
        <message>
            <source>the clip goes %1 beyond it and %2</source>
            <translation>der Clip reicht %1 darüber hinaus und %2</translation>
        </message>
        <message>
            <source>the transition before the clip goes %1 before its beginning and %2</source>
            <translation>der Übergang vor dem Clip reicht %1 vor ihren Anfang und %2</translation>
        </message>
        <message>
            <source>the transition before the clip goes %1 beyond it and %2</source>
            <translation>der Übergang vor dem Clip reicht %1 darüber hinaus und %2</translation>
        </message>
        <message>
            <source>the transition behind the clip goes %1 before its beginning and %2</source>
            <translation>der Übergang hinter dem Clip reicht %1 vor ihren Anfang und %2</translation>
        </message>
        <message>
            <source>the transition behind the clip goes %1 beyond it and %2</source>
            <translation>der Übergang hinter dem Clip reicht %1 darüber hinaus und %2</translation>
        </message>
        <message>
            <source>holds the first picture for %1</source>
            <translation>hält %1 lang das erste Bild</translation>
        </message>
        <message>
            <source>holds the last picture for %1</source>
            <translation>hält %1 lang das letzte Bild</translation>
        </message>
        <message>
            <source>shows nothing but the first picture</source>
            <translation>zeigt nur das erste Bild</translation>
        </message>
        <message>
            <source>shows nothing but the last picture</source>
            <translation>zeigt nur das letzte Bild</translation>
        </message>
        <message>
            <source>is silent for %1</source>
            <translation>ist %1 lang still</translation>
        </message>
        <message>
            <source>is silent throughout</source>
            <translation>ist durchweg still</translation>
        </message>
        <message>
            <source>stack "%1"</source>
            <translation>Stapel „%1“</translation>
        </message>
        <message>
            <source>track "%1"</source>
            <translation>Spur „%1“</translation>
        </message>
        <message>
            <source>the media "%1" %2</source>
            <translation>die Mediendatei „%1“ %2</translation>
        </message>
        <message>
            <source>its media %1</source>
            <translation>seine Mediendatei %1</translation>
        </message>
        <message>
            <source>is not there</source>
            <translation>ist nicht da</translation>
        </message>
        <message>
            <source>is no plain file</source>
            <translation>ist keine gewöhnliche Datei</translation>
        </message>
        <message>
            <source>stands on another machine</source>
            <translation>steht auf einem anderen Rechner</translation>
        </message>
        <message>
            <source>stands at a path of Windows</source>
            <translation>steht an einem Pfad von Windows</translation>
        </message>
        <message>
            <source>is not named</source>
            <translation>ist nicht genannt</translation>
        </message>
        <message>
            <source>is said to be missing</source>
            <translation>fehlt, wie die Timeline sagt</translation>
        </message>
        <message>
            <source>lasts %1</source>
            <translation>dauert %1</translation>
        </message>
        <message>
            <source>it lies between two frames and is not seen</source>
            <translation>er liegt zwischen zwei Bildern und ist nicht zu sehen</translation>
        </message>
        <message>
            <source>%1: smaller pictures, or fewer exports at a time, take less</source>
            <translation>%1: Kleinere Bilder oder weniger Exporte zugleich brauchen weniger</translation>
        </message>
        <message>
            <source>There is too little memory</source>
            <translation>Der Speicher reicht nicht</translation>
        </message>
        <message>
            <source>%1 gets too little memory for pictures of %2, each of which takes up to %3 MiB in one piece</source>
            <translation>%1 bekommt zu wenig Speicher für Bilder von %2, von denen jedes bis zu %3 MiB am Stück braucht</translation>
        </message>
        <message>
            <source>%1 gets too little memory for pictures of %2</source>
            <translation>%1 bekommt zu wenig Speicher für Bilder von %2</translation>
        </message>
        <message>
            <source>Pixels that are not square become square, %1 as %2: viewers of such files know no others</source>
            <translation>Nicht quadratische Bildpunkte werden quadratisch, %1 als %2: Betrachter solcher Dateien kennen keine anderen</translation>
        </message>
        <message>
            <source>its sound has a gap of %1 at %2, filled with silence</source>
            <translation>sein Ton hat bei %2 eine Lücke von %1, die mit Stille gefüllt ist</translation>
        </message>
        <message>
            <source>its sound has more gaps, all filled with silence</source>
            <translation>sein Ton hat weitere Lücken, alle mit Stille gefüllt</translation>
        </message>
        <message>
            <source>its sound changes to %1 on the way; it is converted to %2, as it begins</source>
            <translation>sein Ton wechselt unterwegs zu %1; er wird in %2 umgewandelt, wie er beginnt</translation>
        </message>
        <message>
            <source>A damaged picture was concealed</source>
            <translation>Ein beschädigtes Bild wurde überdeckt</translation>
        </message>
        <message>
            <source>Timestamps run backwards; pictures are left out</source>
            <translation>Zeitstempel laufen rückwärts; Bilder sind weggelassen</translation>
        </message>
        <message>
            <source>Reading ended early: %1</source>
            <translation>Das Lesen endete vorzeitig: %1</translation>
        </message>
        <message>
            <source>Sound is missing at the end; silence stands in for it</source>
            <translation>Am Ende fehlt Ton; an seiner Stelle steht Stille</translation>
        </message>
        <message>
            <source>Sound is missing; silence stands in for it</source>
            <translation>Ton fehlt; an seiner Stelle steht Stille</translation>
        </message>
        <message>
            <source>"%1" is scaled down to the size of the first pictures, %2</source>
            <translation>„%1“ wird auf die Größe der ersten Bilder verkleinert, %2</translation>
        </message>
        <message>
            <source>"%1" and %2 more are scaled down to the size of the first pictures, %3</source>
            <translation>„%1“ und %2 weitere werden auf die Größe der ersten Bilder verkleinert, %3</translation>
        </message>
        <message>
            <source>--set size=WxH chooses another</source>
            <translation>eine andere lässt sich in den eigenen Einstellungen wählen</translation>
        </message>
        <message>
            <source>--set size=%1 chooses another</source>
            <translation>eine andere lässt sich in den eigenen Einstellungen wählen, etwa %1</translation>
        </message>
        <message>
            <source>"%1" is shown at the rate of the first pictures, %2 instead of %3 frames a second</source>
            <translation>„%1“ wird mit der Bildrate der ersten Bilder gezeigt, mit %2 statt %3 Bildern je Sekunde</translation>
        </message>
        <message>
            <source>"%1" and %2 more are shown at the rate of the first pictures, %3 instead of up to %4 frames a second</source>
            <translation>„%1“ und %2 weitere werden mit der Bildrate der ersten Bilder gezeigt, mit %3 statt bis zu %4 Bildern je Sekunde</translation>
        </message>
        <message>
            <source>--set frame-rate=RATE chooses another</source>
            <translation>eine andere lässt sich in den eigenen Einstellungen wählen</translation>
        </message>
        <message>
            <source>--set frame-rate=%1 chooses another</source>
            <translation>eine andere lässt sich in den eigenen Einstellungen wählen, etwa %1</translation>
        </message>
        <message>
            <source>"%1" is mixed down to the channels of the first sound, %2</source>
            <translation>„%1“ wird auf die Kanäle des ersten Tons heruntergemischt, %2</translation>
        </message>
        <message>
            <source>"%1" and %2 more are mixed down to the channels of the first sound, %3</source>
            <translation>„%1“ und %2 weitere werden auf die Kanäle des ersten Tons heruntergemischt, %3</translation>
        </message>
        <message>
            <source>--set channels=%1 chooses others</source>
            <translation>andere lassen sich in den eigenen Einstellungen wählen, etwa %1</translation>
        </message>
        <message>
            <source>variable frame rate</source>
            <translation>veränderliche Bildrate</translation>
        </message>
        <message>
            <source>shown at %1 frames a second</source>
            <translation>mit %1 Bildern je Sekunde gezeigt</translation>
        </message>
        <message>
            <source>which leaves out %1 of its %2 pictures</source>
            <translation>wobei %1 seiner %2 Bilder wegfallen</translation>
        </message>
        <message>
            <source>which leaves out %1 of the first %2 pictures</source>
            <translation>wobei %1 der ersten %2 Bilder wegfallen</translation>
        </message>
        <message>
            <source>which leaves out pictures</source>
            <translation>wobei Bilder wegfallen</translation>
        </message>
        <message>
            <source>the file does not say when most of its pictures are shown, nor how many a second; both are reckoned, and some pictures may be missing</source>
            <translation>die Datei sagt nicht, wann die meisten ihrer Bilder gezeigt werden, noch wie viele je Sekunde; beides ist berechnet, und einzelne Bilder können fehlen</translation>
        </message>
        <message>
            <source>pictures of %1 are encoded without their last column or line, as %2</source>
            <translation>Bilder von %1 werden ohne ihre letzte Spalte oder Zeile encodiert, als %2</translation>
        </message>
        <message>
            <source>pictures of %1 are encoded as %2: %3</source>
            <translation>Bilder in %1 werden als %2 encodiert: %3</translation>
        </message>
        <message>
            <source>%1 bits became %2</source>
            <translation>aus %1 Bits wurden %2</translation>
        </message>
        <message>
            <source>floating point became %1</source>
            <translation>aus Gleitkomma wurden %1 Bits</translation>
        </message>
        <message>
            <source>colour became gray</source>
            <translation>aus Farbe wurde Grau</translation>
        </message>
        <message>
            <source>colour of %1 became %2</source>
            <translation>aus Farbe in %1 wurde %2</translation>
        </message>
        <message>
            <source>the sensor's mosaic became pixels</source>
            <translation>aus dem Mosaik des Sensors wurden Bildpunkte</translation>
        </message>
        <message>
            <source>transparency was left out</source>
            <translation>die Transparenz entfällt</translation>
        </message>
        <message>
            <source>over black</source>
            <translation>über Schwarz</translation>
        </message>
        <message>
            <source>its mastering display or light levels are not the ones that the export tells, which are those of all clips together</source>
            <translation>ihr Mastering-Display oder ihre Lichtwerte sind nicht die, die der Export angibt; das sind die aller Clips zusammen</translation>
        </message>
        <message>
            <source>does not fully tell its colour, taken for %1</source>
            <translation>gibt seine Farbe nicht ganz an, als %1 behandelt</translation>
        </message>
        <message>
            <source>colours converted from %1 to %2</source>
            <translation>Farben von %1 nach %2 umgewandelt</translation>
        </message>
        <message>
            <source>high dynamic range (%1, up to %2 cd/m2), tone-mapped to %3 (mobius curve)</source>
            <translation>hoher Dynamikumfang (%1, bis %2 cd/m²), durch Tone-Mapping auf %3 gebracht (Mobius-Kurve)</translation>
        </message>
        <message>
            <source>standard dynamic range, placed in %1 with its white at %2</source>
            <translation>normaler Dynamikumfang, in %1 eingesetzt, mit Weiß bei %2</translation>
        </message>
        <message>
            <source>%1 left out: its pictures are shown as they are without it</source>
            <translation>%1 weggelassen: Seine Bilder werden gezeigt, wie sie ohne das sind</translation>
        </message>
        <message>
            <source>its pictures change to %1 on the way; they are fitted like those of %2 with which it begins</source>
            <translation>seine Bilder wechseln unterwegs zu %1; sie werden eingepasst wie die von %2, mit denen es beginnt</translation>
        </message>
        <message>
            <source>interlaced (%1), deinterlaced to a picture for each field</source>
            <translation>Zeilensprung (%1), in je ein Bild pro Halbbild umgewandelt</translation>
        </message>
        <message>
            <source>interlaced (%1), deinterlaced</source>
            <translation>Zeilensprung (%1), in Vollbilder umgewandelt</translation>
        </message>
        <message>
            <source>top field first</source>
            <translation>oberes Halbbild zuerst</translation>
        </message>
        <message>
            <source>bottom field first</source>
            <translation>unteres Halbbild zuerst</translation>
        </message>
        <message>
            <source>coded field by field; each field is shown as a picture of its own</source>
            <translation>Halbbild für Halbbild codiert; jedes wird als eigenes Bild gezeigt</translation>
        </message>
        <message>
            <source>its pictures are to be turned by %1 degrees, and are turned by %2</source>
            <translation>seine Bilder sind um %1 Grad zu drehen und werden um %2 gedreht</translation>
        </message>
        <message>
            <source>begins without a keyframe: what lies before the first picture that can be decoded, %1, is left out</source>
            <translation>beginnt ohne Schlüsselbild: Was vor dem ersten decodierbaren Bild liegt, %1, wird weggelassen</translation>
        </message>
        <message>
            <source>of its %1 pictures %2 is missing, "%3" to begin with</source>
            <translation>von seinen %1 Bildern fehlt %2, nämlich „%3“</translation>
        </message>
        <message>
            <source>of its %1 pictures %2 are missing, "%3" to begin with</source>
            <translation>von seinen %1 Bildern fehlen %2, zuerst „%3“</translation>
        </message>
        <message>
            <source>pictures of it are missing, "%1" to begin with</source>
            <translation>Bilder davon fehlen, zuerst „%1“</translation>
        </message>
        <message>
            <source>the one before, or else the next one, stands in each one's place</source>
            <translation>an der Stelle eines jeden steht das vorige, sonst das nächste</translation>
        </message>
        <message>
            <source>black stands in each one's place</source>
            <translation>an der Stelle eines jeden steht Schwarz</translation>
        </message>
        <message>
            <source>not all its pictures are alike: "%1" is %2</source>
            <translation>nicht alle seine Bilder sind gleich: „%1“ ist %2</translation>
        </message>
        <message>
            <source>all are brought to the first one's size and pixel format, %1</source>
            <translation>alle werden auf Größe und Pixelformat des ersten gebracht, %1</translation>
        </message>
        <message>
            <source>the timestamps of its sound drift away from its samples; it is stretched to follow them</source>
            <translation>die Zeitstempel seines Tons laufen von den Abtastwerten weg; er wird gedehnt, um ihnen zu folgen</translation>
        </message>
        <message>
            <source>many packets of its sound have one time; they follow each other</source>
            <translation>viele Pakete seines Tons haben dieselbe Zeit; sie folgen aufeinander</translation>
        </message>
        <message>
            <source>the file does not say what the sound's encoder put in front: the sound may be up to %1 late</source>
            <translation>die Datei sagt nicht, was der Encoder dem Ton vorangestellt hat: Der Ton kann bis zu %1 zu spät kommen</translation>
        </message>
        <message>
            <source>the file does not say what the sound's encoder put in front: %1 are taken for that, and left out</source>
            <translation>die Datei sagt nicht, was der Encoder dem Ton vorangestellt hat: %1 gelten als das und werden weggelassen</translation>
        </message>
        <message>
            <source>its edit list changes the speed of %1, or holds it; that is not followed, and parts may be missing or come twice</source>
            <translation>seine Schnittliste ändert die Geschwindigkeit (%1) oder hält sie an; dem wird nicht gefolgt, und Teile können fehlen oder doppelt kommen</translation>
        </message>
        <message>
            <source>its edit list has a pause in %1; that is not followed, and something else may come in its place</source>
            <translation>seine Schnittliste hat eine Pause (%1); dem wird nicht gefolgt, und an ihrer Stelle kann anderes kommen</translation>
        </message>
        <message>
            <source>its picture</source>
            <translation>Bild</translation>
        </message>
        <message>
            <source>its sound</source>
            <translation>Ton</translation>
        </message>
        <message>
            <source>its samples in floating point became integers of %1 bits, which cut off what lies above full scale</source>
            <translation>aus seinen Gleitkommawerten wurden ganze Zahlen von %1 Bits, was alles über Vollaussteuerung abschneidet</translation>
        </message>
        <message>
            <source>the %1 bits of each sample became %2</source>
            <translation>aus den %1 Bits jedes Abtastwerts wurden %2</translation>
        </message>
        <message>
            <source>sound of %1 is encoded as %2 that do not say where they are heard</source>
            <translation>Ton (%1) wird als %2 encodiert, die nicht sagen, wo sie zu hören sind</translation>
        </message>
        <message>
            <source>sound of %1 is encoded as %2</source>
            <translation>Ton (%1) wird als %2 encodiert</translation>
        </message>
        <message>
            <source>%1 that do not say where they are heard are encoded as %2</source>
            <translation>%1, die nicht sagen, wo sie zu hören sind, werden als %2 encodiert</translation>
        </message>
        <message>
            <source>where it runs backwards it is silent</source>
            <translation>wo es rückwärts läuft, ist es still</translation>
        </message>
        <message>
            <source>where it stands still it is silent</source>
            <translation>wo es stillsteht, ist es still</translation>
        </message>
        <message>
            <source>time code</source>
            <translation>Timecode</translation>
        </message>
        <message>
            <source>its time code is the file's, which runs on where this medium comes again</source>
            <translation>sein Timecode ist der der Datei, der weiterläuft, wo dieses Medium wiederkommt</translation>
        </message>
        <message>
            <source>%1 picture tracks</source>
            <translation>%1 Bildspuren</translation>
        </message>
        <message>
            <source>%1 sound tracks</source>
            <translation>%1 Tonspuren</translation>
        </message>
        <message>
            <source>%1 subtitle tracks</source>
            <translation>%1 Untertitelspuren</translation>
        </message>
        <message>
            <source>%1 data tracks</source>
            <translation>%1 Datenspuren</translation>
        </message>
        <message>
            <source>%1 attached pictures</source>
            <translation>%1 beigefügte Bilder</translation>
        </message>
        <message>
            <source>%1 language, %2, is told as %3</source>
            <translation>Die Sprache %1, %2, wird als %3 angegeben</translation>
        </message>
        <message>
            <source>%1 title is left out: the inputs' differ</source>
            <translation>Der Titel %1 wird weggelassen: Die der Quellen sind verschieden</translation>
        </message>
        <message>
            <source>%1 title, "%2", is left out: the file has no place for it</source>
            <translation>Der Titel %1, „%2“, wird weggelassen: Die Datei hat keinen Platz dafür</translation>
        </message>
        <message>
            <source>Sound track %1's</source>
            <translation>der Tonspur %1</translation>
        </message>
        <message>
            <source>The subtitles'</source>
            <translation>der Untertitel</translation>
        </message>
        <message>
            <source>The subtitles' titles are left out: the inputs' differ</source>
            <translation>Die Titel der Untertitel werden weggelassen: Die der Quellen sind verschieden</translation>
        </message>
        <message>
            <source>Styles of subtitles are left out: the inputs' differ</source>
            <translation>Stile von Untertiteln werden weggelassen: Die der Quellen sind verschieden</translation>
        </message>
        <message>
            <source>Styles of subtitles are left out: the file has no place for them</source>
            <translation>Stile von Untertiteln werden weggelassen: Die Datei hat keinen Platz dafür</translation>
        </message>
        <message>
            <source>Colours of subtitles are left out: the file has no place for them</source>
            <translation>Farben von Untertiteln werden weggelassen: Die Datei hat keinen Platz dafür</translation>
        </message>
        <message>
            <source>Fonts of subtitles and their sizes are left out: the file has no place for them</source>
            <translation>Schriften von Untertiteln und ihre Größen werden weggelassen: Die Datei hat keinen Platz dafür</translation>
        </message>
        <message>
            <source>Lines through the text of subtitles are left out: the file has no place for them</source>
            <translation>Durchstreichungen in Untertiteln werden weggelassen: Die Datei hat keinen Platz dafür</translation>
        </message>
        <message>
            <source>Places of subtitles on the picture are left out: the file has none for them</source>
            <translation>Die Plätze von Untertiteln auf dem Bild werden weggelassen: Die Datei hat keine dafür</translation>
        </message>
        <message>
            <source>Of more than %1 subtitles at one time the first ones are kept: the file shows one at a time</source>
            <translation>Von mehr als %1 Untertiteln zugleich bleiben die ersten: Die Datei zeigt einen auf einmal</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 cannot be read and are left out</source>
            <translation>Untertitel der Spur %2, die sich nicht lesen lassen und wegfallen: %1</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 are longer than a subtitle can be and are left out</source>
            <translation>Untertitel der Spur %2, die zu lang sind und wegfallen: %1</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 are more than can be kept and are left out</source>
            <translation>Untertitel der Spur %2, die zu viele sind und wegfallen: %1</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 have a place of their own on the picture, which is left out</source>
            <translation>Untertitel der Spur %2, deren eigener Platz auf dem Bild wegfällt: %1</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 name speakers or classes, which are left out</source>
            <translation>Untertitel der Spur %2, deren Sprecher oder Klassen wegfallen: %1</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 have tags that WebVTT does not know, which are left out</source>
            <translation>Untertitel der Spur %2 mit Auszeichnungen, die WebVTT nicht kennt und die wegfallen: %1</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 are no UTF-8 and were read as Windows-1252</source>
            <translation>Untertitel der Spur %2, die kein UTF-8 sind und als Windows-1252 gelesen wurden: %1</translation>
        </message>
        <message>
            <source>of its %1 chapters the first %2 are read</source>
            <translation>von seinen %1 Kapiteln werden die ersten %2 gelesen</translation>
        </message>
        <message>
            <source>the tag "%1" is left out: it holds %2 bytes</source>
            <translation>die Angabe „%1“ wird weggelassen: Sie umfasst %2 Bytes</translation>
        </message>
        <message>
            <source>the tag "%1" is no UTF-8 and was read as Windows-1252</source>
            <translation>die Angabe „%1“ ist kein UTF-8 und wurde als Windows-1252 gelesen</translation>
        </message>
        <message>
            <source>Timestamps jump by %1</source>
            <translation>Die Zeitstempel springen um %1</translation>
        </message>
        <message>
            <source>what follows was joined on %1</source>
            <translation>was folgt, wurde %1 angefügt</translation>
        </message>
        <message>
            <source>without a gap</source>
            <translation>ohne Lücke</translation>
        </message>
        <message>
            <source>with the picture held for %1, in which its sound goes on</source>
            <translation>mit %1 lang gehaltenem Bild, während sein Ton weitergeht</translation>
        </message>
        <message>
            <source>Its sound lasts for %1, but its timestamps only for %2; the rest is left out</source>
            <translation>Sein Ton dauert %1, seine Zeitstempel nur %2; der Rest wird weggelassen</translation>
        </message>
        <message>
            <source>The file ends at %1, and another file of its kind, which is not read, follows behind it: it is incomplete</source>
            <translation>Die Datei endet bei %1, und dahinter folgt eine andere ihrer Art, die nicht gelesen wird: Sie ist unvollständig</translation>
        </message>
        <message>
            <source>The file ends at %1, but its header claims %2: it is incomplete</source>
            <translation>Die Datei endet bei %1, doch ihr Kopf nennt %2: Sie ist unvollständig</translation>
        </message>
        <message>
            <source>The file ends at %1, and %2 that it announces are missing: it is incomplete</source>
            <translation>Die Datei endet bei %1, und %2, die sie ankündigt, fehlen: Sie ist unvollständig</translation>
        </message>
        <message>
            <source>Behind what can be seen and heard, %1 are missing</source>
            <translation>Hinter dem, was zu sehen und zu hören ist, fehlen %1</translation>
        </message>
        <message>
            <source>The file has no last page; it may have been cut off</source>
            <translation>Die Datei hat keine letzte Seite; sie kann abgeschnitten sein</translation>
        </message>
        <message>
            <source>The file ends within a packet: it was cut off, and what it ended with is missing</source>
            <translation>Die Datei endet mitten in einem Paket: Sie ist abgeschnitten, und ihr Ende fehlt</translation>
        </message>
        <message>
            <source>The %1 track begins so late that the beginning of the file does not tell of it, and is not read: it is missing</source>
            <translation>Die Spur (%1) beginnt so spät, dass der Anfang der Datei nichts von ihr sagt, und wird nicht gelesen: Sie fehlt</translation>
        </message>
        <message>
            <source>nothing that can be read stands in the next %1 MiB</source>
            <translation>in den nächsten %1 MiB steht nichts Lesbares</translation>
        </message>
        <message>
            <source>nothing of the %1 track was found before reading ended early: %2</source>
            <translation>von der Spur %1 fand sich nichts, bevor das Lesen vorzeitig endete: %2</translation>
        </message>
        <message>
            <source>nothing of the %1 track was found in the first %2 MiB; if it begins later, it is missing</source>
            <translation>von der Spur %1 fand sich in den ersten %2 MiB nichts; beginnt sie später, so fehlt sie</translation>
        </message>
        <message>
            <source>no frame of the %1 track can be decoded</source>
            <translation>kein Bild oder Stück der Spur %1 lässt sich decodieren</translation>
        </message>
        <message>
            <source>A damaged picture was concealed: "%1"</source>
            <translation>Ein beschädigtes Bild wurde überdeckt: „%1“</translation>
        </message>
        <message>
            <source>it holds no picture that can be decoded</source>
            <translation>sie enthält kein Bild, das sich decodieren lässt</translation>
        </message>
        <message>
            <source>it holds no picture</source>
            <translation>sie enthält kein Bild</translation>
        </message>
        <message>
            <source>Looking at "%1" does not come to an end</source>
            <translation>Das Ansehen von „%1“ kommt zu keinem Ende</translation>
        </message>
        <message>
            <source>Reading the finished file and moving it to "%1" does not come to an end</source>
            <translation>Das Lesen der fertigen Datei und ihr Weg nach „%1“ kommen zu keinem Ende</translation>
        </message>
        <message>
            <source>The folder of "%1" does not answer: an unfinished file may be left there, %2</source>
            <translation>Der Ordner von „%1“ antwortet nicht: Dort kann eine unfertige Datei zurückbleiben, %2</translation>
        </message>
        <message>
            <source>Your own presets are left out: %1</source>
            <translation>Ihre eigenen Vorgaben werden weggelassen: %1</translation>
        </message>
        <message>
            <source>%1 of the %2 pictures that it shows are not there, the first one is "%3"</source>
            <translation>von den %2 Bildern, die er zeigt, sind nicht da: %1, das erste ist „%3“</translation>
        </message>
        <message>
            <source>a tone stands among pictures, where it is not heard</source>
            <translation>ein Ton steht zwischen Bildern, wo er nicht zu hören ist</translation>
        </message>
        <message>
            <source>bars stand among sound, where they are not seen</source>
            <translation>Farbbalken stehen zwischen Ton, wo sie nicht zu sehen sind</translation>
        </message>
        <message>
            <source>pictures stand among sound</source>
            <translation>Bilder stehen zwischen Ton</translation>
        </message>
        <message>
            <source>%1 more clips lie between two frames and are not seen</source>
            <translation>%1 weitere Clips liegen zwischen zwei Bildern und sind nicht zu sehen</translation>
        </message>
        <message>
            <source>the track does not say what it holds; it is taken for pictures</source>
            <translation>die Spur sagt nicht, was sie enthält; sie gilt als Bildspur</translation>
        </message>
        <message>
            <source>tracks of the kind "%1" are left out</source>
            <translation>Spuren der Art „%1“ werden weggelassen</translation>
        </message>
        <message>
            <source>a transition stands outside of a track and is left out</source>
            <translation>ein Übergang steht außerhalb einer Spur und wird weggelassen</translation>
        </message>
        <message>
            <source>"%1" is not known</source>
            <translation>„%1“ ist nicht bekannt</translation>
        </message>
        <message>
            <source>there is a gap in its place</source>
            <translation>an seiner Stelle ist eine Lücke</translation>
        </message>
        <message>
            <source>it has no length either, and what follows begins at its place</source>
            <translation>es hat auch keine Länge, und was folgt, beginnt an seiner Stelle</translation>
        </message>
        <message>
            <source>it lasts no time and is left out</source>
            <translation>er dauert keine Zeit und wird weggelassen</translation>
        </message>
        <message>
            <source>it follows another transition and is left out</source>
            <translation>er folgt auf einen anderen Übergang und wird weggelassen</translation>
        </message>
        <message>
            <source>there is no time for it, and it is left out</source>
            <translation>für ihn ist keine Zeit da, und er wird weggelassen</translation>
        </message>
        <message>
            <source>it is longer than the clips beside it and is shortened to them</source>
            <translation>er ist länger als die Clips daneben und wird auf sie gekürzt</translation>
        </message>
        <message>
            <source>the stack "%1" before it has too little beyond the cut: for %2 ms its picture stands still, and nothing is heard of it</source>
            <translation>der Stapel „%1“ davor hat zu wenig hinter dem Schnitt: %2 ms lang steht sein Bild still, und nichts ist von ihm zu hören</translation>
        </message>
        <message>
            <source>the stack "%1" before it has too little beyond the cut: for %2 ms nothing is heard of it</source>
            <translation>der Stapel „%1“ davor hat zu wenig hinter dem Schnitt: %2 ms lang ist nichts von ihm zu hören</translation>
        </message>
        <message>
            <source>the stack "%1" behind it has too little before the cut: for %2 ms its picture stands still, and nothing is heard of it</source>
            <translation>der Stapel „%1“ dahinter hat zu wenig vor dem Schnitt: %2 ms lang steht sein Bild still, und nichts ist von ihm zu hören</translation>
        </message>
        <message>
            <source>the stack "%1" behind it has too little before the cut: for %2 ms nothing is heard of it</source>
            <translation>der Stapel „%1“ dahinter hat zu wenig vor dem Schnitt: %2 ms lang ist nichts von ihm zu hören</translation>
        </message>
        <message>
            <source>the global start time lies outside of 0 to 24 hours, and its time code wraps around</source>
            <translation>die globale Startzeit liegt außerhalb von 0 bis 24 Stunden, und ihr Timecode beginnt wieder von vorn</translation>
        </message>
        <message>
            <source>frames that are missing are an error, not "%1"</source>
            <translation>fehlende Bilder sind ein Fehler, nicht „%1“</translation>
        </message>
        <message>
            <source>the tone's frequency is no number from 1 to 20000; it sounds at 1000 Hz</source>
            <translation>die Frequenz des Tons ist keine Zahl von 1 bis 20000; er klingt mit 1000 Hz</translation>
        </message>
        <message>
            <source>the colour is not told as red, green and blue from 0 to 1 or as "#rrggbb"; it is black</source>
            <translation>die Farbe ist weder als Rot, Grün und Blau von 0 bis 1 noch als „#rrggbb“ angegeben; sie ist Schwarz</translation>
        </message>
        <message>
            <source>it is no marker and is left out</source>
            <translation>das ist keine Marke und wird weggelassen</translation>
        </message>
        <message>
            <source>the marker is left out</source>
            <translation>die Marke wird weggelassen</translation>
        </message>
        <message>
            <source>a NUL stands in the name, which ends there</source>
            <translation>im Namen steht ein NUL, und er endet dort</translation>
        </message>
        <message>
            <source>%1 more findings are not listed</source>
            <translation>%1 weitere Befunde sind nicht aufgeführt</translation>
        </message>
        <message>
            <source>"%1" stands in it more than once; the last one counts</source>
            <translation>„%1“ steht mehr als einmal darin; das letzte zählt</translation>
        </message>
        <message>
            <source>it goes beyond what there is of its contents and %1</source>
            <translation>er reicht über seinen Inhalt hinaus und %1</translation>
        </message>
        <message>
            <source>holds the first picture throughout</source>
            <translation>hält durchweg das erste Bild</translation>
        </message>
        <message>
            <source>holds the last picture throughout</source>
            <translation>hält durchweg das letzte Bild</translation>
        </message>
        <message>
            <source>its media "%1" is not among its references</source>
            <translation>die Mediendatei „%1“ ist nicht unter seinen Verweisen</translation>
        </message>
        <message>
            <source>is of the unknown schema "%1"</source>
            <translation>hat das unbekannte Schema „%1“</translation>
        </message>
        <message>
            <source>is the unknown generator "%1"</source>
            <translation>ist der unbekannte Generator „%1“</translation>
        </message>
        <message>
            <source>is a sequence of pictures without a proper numbering, rate or name</source>
            <translation>ist eine Bildfolge ohne richtige Nummerierung, Rate oder Namen</translation>
        </message>
        <message>
            <source>its entry "%1" %2</source>
            <translation>sein Eintrag „%1“ %2</translation>
        </message>
        <message>
            <source>is in it twice</source>
            <translation>ist doppelt darin</translation>
        </message>
        <message>
            <source>cannot be unpacked: %1</source>
            <translation>lässt sich nicht auspacken: %1</translation>
        </message>
        <message>
            <source>has a name that leads out of the archive</source>
            <translation>hat einen Namen, der aus dem Archiv hinausführt</translation>
        </message>
        <message>
            <source>%1 is newer than what can be read, %2</source>
            <translation>%1 ist neuer als das, was sich lesen lässt, %2</translation>
        </message>
        <message>
            <source>has no name</source>
            <translation>hat keinen Namen</translation>
        </message>
        <message>
            <source>has a name with a zero byte</source>
            <translation>hat einen Namen mit einem Nullbyte</translation>
        </message>
        <message>
            <source>is a URL of the scheme "%1"; only files are opened</source>
            <translation>ist eine URL des Schemas „%1“; nur Dateien werden geöffnet</translation>
        </message>
        <message>
            <source>cannot be looked at: %1</source>
            <translation>lässt sich nicht ansehen: %1</translation>
        </message>
        <message>
            <source>is no folder</source>
            <translation>ist kein Ordner</translation>
        </message>
        <message>
            <source>%1, marker "%2": %3</source>
            <translation>%1, Marke „%2“: %3</translation>
        </message>
        <message>
            <source>stack "%1": %2</source>
            <translation>Stapel „%1“: %2</translation>
        </message>
        <message>
            <source>track "%1": %2</source>
            <translation>Spur „%1“: %2</translation>
        </message>
        <message>
            <source>clip "%1": %2</source>
            <translation>Clip „%1“: %2</translation>
        </message>
        <message>
            <source>The mix goes %1 dB beyond full scale, %2</source>
            <translation>Die Mischung geht %1 dB über Vollaussteuerung hinaus, %2</translation>
        </message>
        <message>
            <source>and its peaks are turned down</source>
            <translation>und ihre Spitzen werden leiser gemacht</translation>
        </message>
        <message>
            <source>which samples in integers cannot hold</source>
            <translation>was ganzzahlige Abtastwerte nicht fassen können</translation>
        </message>
        <message>
            <source>stacks and tracks stand too deep in each other</source>
            <translation>Stapel und Spuren sind zu tief ineinander verschachtelt</translation>
        </message>
        <message>
            <source>a stack has no list of children</source>
            <translation>einem Stapel fehlt die Liste seiner Inhalte</translation>
        </message>
        <message>
            <source>a track has no list of children</source>
            <translation>einer Spur fehlt die Liste ihrer Inhalte</translation>
        </message>
        <message>
            <source>the track lasts longer than a year</source>
            <translation>die Spur dauert länger als ein Jahr</translation>
        </message>
        <message>
            <source>nothing tells how long it lasts</source>
            <translation>nichts sagt, wie lange er dauert</translation>
        </message>
        <message>
            <source>a transition reaches a negative time to one side</source>
            <translation>ein Übergang reicht auf einer Seite um eine negative Zeit</translation>
        </message>
        <message>
            <source>%1 timelines in it are called "%2"; their numbers choose one: %3</source>
            <translation>%1 Timelines darin heißen „%2“; ihre Nummern wählen eine: %3</translation>
        </message>
        <message>
            <source>there is no timeline in it</source>
            <translation>darin ist keine Timeline</translation>
        </message>
        <message>
            <source>there is no timeline "%1" in it; there are %2</source>
            <translation>darin ist keine Timeline „%1“; es gibt %2</translation>
        </message>
        <message>
            <source>there are several timelines in it, and none was chosen: %1</source>
            <translation>darin sind mehrere Timelines, und keine wurde gewählt: %1</translation>
        </message>
        <message>
            <source>the timeline has no tracks</source>
            <translation>die Timeline hat keine Spuren</translation>
        </message>
        <message>
            <source>the folder that it stands in cannot be told: %1</source>
            <translation>der Ordner, in dem sie steht, lässt sich nicht bestimmen: %1</translation>
        </message>
        <message>
            <source>there is nothing on the timeline</source>
            <translation>auf der Timeline ist nichts</translation>
        </message>
        <message>
            <source>there is no content.otio in it</source>
            <translation>darin ist keine content.otio</translation>
        </message>
        <message>
            <source>the speed is no number from -100 to 100</source>
            <translation>die Geschwindigkeit ist keine Zahl von -100 bis 100</translation>
        </message>
        <message>
            <source>it is no plain file</source>
            <translation>sie ist keine gewöhnliche Datei</translation>
        </message>
        <message>
            <source>it is not there</source>
            <translation>sie ist nicht da</translation>
        </message>
        <message>
            <source>it is longer than a timeline should be (1 GiB)</source>
            <translation>sie ist länger, als eine Timeline sein sollte (1 GiB)</translation>
        </message>
        <message>
            <source>it became shorter while it was read</source>
            <translation>sie wurde kürzer, während sie gelesen wurde</translation>
        </message>
        <message>
            <source>half of a surrogate pair stands in it, which is no letter</source>
            <translation>darin steht ein halbes Surrogatpaar, was kein Buchstabe ist</translation>
        </message>
        <message>
            <source>it nests deeper than a timeline should (%1)</source>
            <translation>sie ist tiefer verschachtelt, als eine Timeline sein sollte (%1)</translation>
        </message>
        <message>
            <source>it is no JSON: %1 (line %2, column %3)</source>
            <translation>das ist kein JSON: %1 (Zeile %2, Spalte %3)</translation>
        </message>
        <message>
            <source>the %1 of a time is no number</source>
            <translation>eine Zeit ist keine Zahl (%1)</translation>
        </message>
        <message>
            <source>the %1 of a time is not finite</source>
            <translation>eine Zeit ist nicht endlich (%1)</translation>
        </message>
        <message>
            <source>a time is missing</source>
            <translation>eine Zeit fehlt</translation>
        </message>
        <message>
            <source>a time lies more than a year away</source>
            <translation>eine Zeit liegt mehr als ein Jahr entfernt</translation>
        </message>
        <message>
            <source>a time's rate is not above 0 or beyond all measure</source>
            <translation>die Rate einer Zeit ist nicht größer als 0 oder maßlos</translation>
        </message>
        <message>
            <source>a range of time is missing</source>
            <translation>ein Zeitbereich fehlt</translation>
        </message>
        <message>
            <source>a duration is negative</source>
            <translation>eine Dauer ist negativ</translation>
        </message>
        <message>
            <source>is encrypted</source>
            <translation>ist verschlüsselt</translation>
        </message>
        <message>
            <source>claims to hold %1 in %2 bytes, which media never do</source>
            <translation>will %1 in %2 Bytes enthalten, was Medien nie tun</translation>
        </message>
        <message>
            <source>takes %1, and where it would be unpacked %2 are free</source>
            <translation>braucht %1, und wo er ausgepackt würde, sind %2 frei</translation>
        </message>
        <message>
            <source>makes %1 of an archive of %2 bytes, which media never do</source>
            <translation>macht aus einem Archiv von %2 Bytes %1, was Medien nie tun</translation>
        </message>
        <message>
            <source>is not unpacked: that was stopped</source>
            <translation>wird nicht ausgepackt: Das wurde abgebrochen</translation>
        </message>
        <message>
            <source>is damaged: it does not hold what it claims to</source>
            <translation>ist beschädigt: Er enthält nicht, was er angibt</translation>
        </message>
        <message>
            <source>is damaged: %1</source>
            <translation>ist beschädigt: %1</translation>
        </message>
        <message>
            <source>cannot be unpacked</source>
            <translation>lässt sich nicht auspacken</translation>
        </message>
        <message>
            <source>it is no zip archive, or a damaged one: %1</source>
            <translation>das ist kein Zip-Archiv oder ein beschädigtes: %1</translation>
        </message>
        <message>
            <source>it has more entries than a timeline should (%1)</source>
            <translation>sie hat mehr Einträge, als eine Timeline haben sollte (%1)</translation>
        </message>
        <message>
            <source>its entry %1 is damaged</source>
            <translation>ihr Eintrag %1 ist beschädigt</translation>
        </message>
        <message>
            <source>it is an archive of version %1, and version 1 is known</source>
            <translation>das ist ein Archiv der Version %1, bekannt ist Version 1</translation>
        </message>
        <message>
            <source>there is no folder to unpack it to: %1</source>
            <translation>es gibt keinen Ordner, in den sie sich auspacken ließe: %1</translation>
        </message>
        <message>
            <source>mono</source>
            <translation>Mono</translation>
        </message>
        <message>
            <source>stereo</source>
            <translation>Stereo</translation>
        </message>
        <message>
            <source>%1 channels</source>
            <translation>%1 Kanäle</translation>
        </message>
        <message>
            <source>%1 channels (%2)</source>
            <translation>%1 Kanäle (%2)</translation>
        </message>
        <message>
            <source>%1 (track %2)</source>
            <translation>%1 (Spur %2)</translation>
        </message>
        <message>
            <source>%1 attachments</source>
            <translation>%1 Anlagen</translation>
        </message>
        <message>
            <source>%1 tags</source>
            <translation>%1 Angaben</translation>
        </message>
        <message>
            <source>%1 bytes</source>
            <translation>%1 Bytes</translation>
        </message>
        <message>
            <source>picture</source>
            <translation>Bild</translation>
        </message>
        <message>
            <source>sound</source>
            <translation>Ton</translation>
        </message>
        <message>
            <source>%1 at its start and %2</source>
            <translation>%1 an seinem Anfang und %2</translation>
        </message>
        <message>
            <source>%1 at its start</source>
            <translation>%1 an seinem Anfang</translation>
        </message>
        <message>
            <source>%1 at its end</source>
            <translation>%1 an seinem Ende</translation>
        </message>
        <message>
            <source>%1, nor below the folder for media</source>
            <translation>%1, auch nicht unter dem Ordner für Medien</translation>
        </message>
        <message>
            <source>stack: %1</source>
            <translation>Stapel: %1</translation>
        </message>
        <message>
            <source>track: %1</source>
            <translation>Spur: %1</translation>
        </message>
        <message>
            <source>%1 (/%2)</source>
            <translation>%1 (/%2)</translation>
        </message>
        <message>
            <source>value</source>
            <translation>Wert</translation>
        </message>
        <message>
            <source>rate</source>
            <translation>Rate</translation>
        </message>
    </context>
</TS>
