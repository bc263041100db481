<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
    <context>
        <name>Dialog::ExportWindow</name>
        <message numerus="yes">
            <source>and %n more</source>
            <translation>
                <numerusform>and %n more</numerusform>
                <numerusform>and %n more</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%n export(s) were not started. Close without them?</source>
            <translation>
                <numerusform>%n export was not started. Close without it?</numerusform>
                <numerusform>%n exports were not started. Close without them?</numerusform>
            </translation>
        </message>
    </context>
    <context>
        <name>Dialog::OutcomeText</name>
        <message numerus="yes">
            <source>%1, %2 × %3, %n frame(s)</source>
            <translation>
                <numerusform>%1, %2 × %3, %n frame</numerusform>
                <numerusform>%1, %2 × %3, %n frames</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1, %2, %n channel(s)</source>
            <translation>
                <numerusform>%1, %2, %n channel</numerusform>
                <numerusform>%1, %2, %n channels</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>and %n more, in the details</source>
            <translation>
                <numerusform>and %n more, in the details</numerusform>
                <numerusform>and %n more, in the details</numerusform>
            </translation>
        </message>
    </context>
    <context>
        <name>Dialog::PeoplesText</name>
        <message numerus="yes">
            <source>about %n second(s)</source>
            <translation>
                <numerusform>about %n second</numerusform>
                <numerusform>about %n seconds</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>about %n minute(s)</source>
            <translation>
                <numerusform>about %n minute</numerusform>
                <numerusform>about %n minutes</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>about %n hour(s)</source>
            <translation>
                <numerusform>about %n hour</numerusform>
                <numerusform>about %n hours</numerusform>
            </translation>
        </message>
    </context>
    <context>
        <name>Dialog::SourceMedia</name>
        <message numerus="yes">
            <source>%1 and %n more</source>
            <translation>
                <numerusform>%1 and %n more</numerusform>
                <numerusform>%1 and %n more</numerusform>
            </translation>
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
            <translation>Small files</translation>
        </message>
        <message>
            <source>editing</source>
            <translation>Editing</translation>
        </message>
        <message>
            <source>pictures</source>
            <translation>Pictures</translation>
        </message>
        <message>
            <source>high-dynamic-range</source>
            <translation>High dynamic range</translation>
        </message>
        <message>
            <source>two-pass</source>
            <translation>Two passes</translation>
        </message>
        <message>
            <source>audio</source>
            <translation>Audio</translation>
        </message>
        <message>
            <source>high</source>
            <translation>High</translation>
        </message>
        <message>
            <source>medium</source>
            <translation>Medium</translation>
        </message>
        <message>
            <source>low</source>
            <translation>Low</translation>
        </message>
        <message>
            <source>best</source>
            <translation>Best</translation>
        </message>
        <message>
            <source>draft</source>
            <translation>Draft</translation>
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
    </context>
    <context>
        <name>Dialog::Sentence</name>
        <message>
            <source>it exists already (--overwrite replaces it)</source>
            <translation>it exists already</translation>
        </message>
        <message>
            <source>%1; what comes before can be exported with --out %2</source>
            <translation>%1; what comes before can be exported with the out point %2</translation>
        </message>
        <message>
            <source>%1; choose one of the preset's qualities (--quality %2)</source>
            <translation>%1; choose one of the preset's qualities: %2</translation>
        </message>
        <message>
            <source>pictures of these names exist already, &quot;%1&quot; to begin with (--overwrite replaces them)</source>
            <translation>pictures of these names exist already, &quot;%1&quot; to begin with</translation>
        </message>
        <message>
            <source>and %1 more (validate tells them all)</source>
            <translation>and %1 more</translation>
        </message>
        <message>
            <source>--set size=WxH chooses another</source>
            <translation>the custom settings choose another</translation>
        </message>
        <message>
            <source>--set size=%1 chooses another</source>
            <translation>the custom settings choose another, as %1</translation>
        </message>
        <message>
            <source>--set frame-rate=RATE chooses another</source>
            <translation>the custom settings choose another</translation>
        </message>
        <message>
            <source>--set frame-rate=%1 chooses another</source>
            <translation>the custom settings choose another, as %1</translation>
        </message>
        <message>
            <source>--set channels=%1 chooses others</source>
            <translation>the custom settings choose others, as %1</translation>
        </message>
    </context>
</TS>
