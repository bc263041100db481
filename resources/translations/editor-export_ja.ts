<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
    <context>
        <name>Dialog::ExportForm</name>
        <message>
            <source>This preset is not possible: %1</source>
            <translation>このプリセットは使えません: %1</translation>
        </message>
        <message>
            <source>Neither picture nor sound would be in the file</source>
            <translation>ファイルに映像も音声も入りません</translation>
        </message>
        <message>
            <source>The first marker must come before the ending one</source>
            <translation>最初のマーカーは終わりのマーカーより前でなければなりません</translation>
        </message>
        <message>
            <source>“%1” is no time; write minutes and seconds as 1:30, or frames as 120f</source>
            <translation>「%1」は時間ではありません。分と秒は 1:30、フレームは 120f のように書きます</translation>
        </message>
        <message>
            <source>The in point must lie before the out point, and before the end</source>
            <translation>イン点はアウト点と末尾より前でなければなりません</translation>
        </message>
        <message>
            <source>What was opened cannot be exported</source>
            <translation>開いたものは書き出せません</translation>
        </message>
        <message>
            <source>The source is being opened</source>
            <translation>ソースを開いています</translation>
        </message>
        <message>
            <source>Open what is to be exported</source>
            <translation>書き出すものを開いてください</translation>
        </message>
        <message>
            <source>The file needs a name</source>
            <translation>ファイル名が必要です</translation>
        </message>
        <message>
            <source>The custom settings do not fit</source>
            <translation>カスタム設定が合いません</translation>
        </message>
        <message>
            <source>Write the file with its whole folder, or choose it with “Save as”</source>
            <translation>フォルダーを含むファイル名を書くか、「名前を付けて保存」で選んでください</translation>
        </message>
        <message>
            <source>The file is what is exported; save it under another name</source>
            <translation>このファイルは書き出す元です。別の名前で保存してください</translation>
        </message>
    </context>
    <context>
        <name>Dialog::ExportWindow</name>
        <message>
            <source>Export</source>
            <translation>書き出し</translation>
        </message>
        <message>
            <source>&amp;Open…</source>
            <translation>開く(&amp;O)…</translation>
        </message>
        <message>
            <source>Use black for what is missing</source>
            <translation>欠けているものを黒にする</translation>
        </message>
        <message>
            <source>Add to &amp;queue</source>
            <translation>待ち行列に追加(&amp;Q)</translation>
        </message>
        <message>
            <source>E&amp;xport</source>
            <translation>書き出す(&amp;X)</translation>
        </message>
        <message>
            <source>Open what is to be exported</source>
            <translation>書き出すものを開いてください</translation>
        </message>
        <message>
            <source>Nothing is open</source>
            <translation>何も開いていません</translation>
        </message>
        <message>
            <source>Drop media files or a timeline here</source>
            <translation>メディアファイルかタイムラインをここにドロップ</translation>
        </message>
        <message>
            <source>Opening…</source>
            <translation>開いています…</translation>
        </message>
        <message numerus="yes">
            <source>and %n more</source>
            <translation>
                <numerusform>ほか %n 件</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 – %2 – Export</source>
            <comment>state, file</comment>
            <translation>%1 – %2 – 書き出し</translation>
        </message>
        <message>
            <source>takes %1</source>
            <comment>a time</comment>
            <translation>所要時間 %1</translation>
        </message>
        <message>
            <source>Another export in the list is to become “%1” as well. “%2”, which is there already, is replaced, too.</source>
            <translation>一覧の別の書き出しも「%1」になります。既にある「%2」も置き換えられます。</translation>
        </message>
        <message>
            <source>Another export in the list is to become “%1” as well.</source>
            <translation>一覧の別の書き出しも「%1」になります。</translation>
        </message>
        <message>
            <source>Add it all the same</source>
            <translation>それでも追加</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>キャンセル</translation>
        </message>
        <message>
            <source>“%1” is there already. It is replaced when the export is complete, and not before.</source>
            <translation>「%1」は既にあります。書き出しが完了したときに初めて置き換えられます。</translation>
        </message>
        <message>
            <source>Replace</source>
            <translation>置き換える</translation>
        </message>
        <message>
            <source>A film is being exported</source>
            <translation>動画を書き出しています</translation>
        </message>
        <message>
            <source>Stop the export</source>
            <translation>書き出しの停止</translation>
        </message>
        <message>
            <source>Stop the export of “%1”? Nothing of it is kept.</source>
            <translation>「%1」の書き出しを停止しますか。何も残りません。</translation>
        </message>
        <message>
            <source>Go on</source>
            <translation>続ける</translation>
        </message>
        <message>
            <source>Close</source>
            <translation>閉じる</translation>
        </message>
        <message>
            <source>An export is running, and others wait. Stop it and close? Nothing of it is kept, and the others are not made.</source>
            <translation>書き出し中で、待機中の書き出しもあります。停止して閉じますか。何も残らず、待機中の書き出しも行われません。</translation>
        </message>
        <message>
            <source>An export is running. Stop it and close? Nothing of it is kept.</source>
            <translation>書き出し中です。停止して閉じますか。何も残りません。</translation>
        </message>
        <message>
            <source>Stop and close</source>
            <translation>停止して閉じる</translation>
        </message>
        <message>
            <source>takes %1, at a rough guess</source>
            <comment>a time</comment>
            <translation>所要時間 %1（概算）</translation>
        </message>
        <message>
            <source>Looking what stands at the file's place…</source>
            <translation>ファイルの場所を調べています…</translation>
        </message>
        <message>
            <source>The folder of “%1” does not answer. Check its disk or share, or save the export in another folder.</source>
            <translation>「%1」のフォルダーが応答しません。ディスクや共有を確認するか、別のフォルダーに保存してください。</translation>
        </message>
        <message>
            <source>“%1” is one of the inputs, and stays. Save the export under another name.</source>
            <translation>「%1」は入力のひとつなので残されます。書き出しは別の名前で保存してください。</translation>
        </message>
        <message numerus="yes">
            <source>%n export(s) were not started. Close without them?</source>
            <translation>
                <numerusform>%n 件の書き出しは開始されていません。行わずに閉じますか?</numerusform>
            </translation>
        </message>
        <message>
            <source>“%1” is a folder. Write the name of a file in it.</source>
            <translation>「%1」はフォルダーです。その中のファイル名を書いてください。</translation>
        </message>
        <message>
            <source>Look in a folder…</source>
            <translation>フォルダーで探す…</translation>
        </message>
        <message>
            <source>Folder in which the missing media are looked for</source>
            <translation>見つからないメディアを探すフォルダー</translation>
        </message>
        <message>
            <source>The folder of “%1” takes no files. Save the export in another folder.</source>
            <translation>「%1」のフォルダーには書き込めません。別のフォルダーに保存してください。</translation>
        </message>
        <message>
            <source>“%1” has changed since it was opened, and is opened anew. Look at it, and export again.</source>
            <translation>「%1」は開いた後に変更されたため、開き直します。確認してから、もう一度書き出してください。</translation>
        </message>
    </context>
    <context>
        <name>Dialog::Job</name>
        <message>
            <source>Waiting</source>
            <translation>待機中</translation>
        </message>
        <message>
            <source>Starting</source>
            <translation>開始中</translation>
        </message>
        <message>
            <source>%1 %</source>
            <translation>%1 %</translation>
        </message>
        <message>
            <source>Checking</source>
            <translation>検査中</translation>
        </message>
        <message>
            <source>Stopping</source>
            <translation>停止中</translation>
        </message>
        <message>
            <source>Stopped</source>
            <translation>停止しました</translation>
        </message>
        <message>
            <source>Done</source>
            <translation>完了</translation>
        </message>
        <message>
            <source>Failed</source>
            <translation>失敗</translation>
        </message>
        <message>
            <source>%1 × real time</source>
            <translation>実時間の %1 倍</translation>
        </message>
        <message>
            <source>%1 left</source>
            <translation>残り %1</translation>
        </message>
        <message>
            <source>Done, with warnings</source>
            <translation>完了（警告あり）</translation>
        </message>
    </context>
    <context>
        <name>Dialog::JobPane</name>
        <message>
            <source>&amp;Jobs:</source>
            <translation>ジョブ(&amp;J):</translation>
        </message>
        <message>
            <source>Start queue</source>
            <translation>待ち行列を開始</translation>
        </message>
        <message>
            <source>Nothing is selected.</source>
            <translation>何も選択されていません。</translation>
        </message>
        <message>
            <source>It begins when the exports before it have ended.</source>
            <translation>前の書き出しが終わると始まります。</translation>
        </message>
        <message>
            <source>Take out of the queue</source>
            <translation>待ち行列から外す</translation>
        </message>
        <message>
            <source>Picture that is being encoded</source>
            <translation>エンコード中の画像</translation>
        </message>
        <message>
            <source>Progress of the export</source>
            <translation>書き出しの進み具合</translation>
        </message>
        <message>
            <source>Stop…</source>
            <translation>停止…</translation>
        </message>
        <message>
            <source>Details</source>
            <translation>詳細</translation>
        </message>
        <message>
            <source>Details of the export</source>
            <translation>書き出しの詳細</translation>
        </message>
        <message>
            <source>Open</source>
            <translation>開く</translation>
        </message>
        <message>
            <source>Show in folder</source>
            <translation>フォルダーで表示</translation>
        </message>
        <message>
            <source>Try again</source>
            <translation>もう一度試す</translation>
        </message>
        <message>
            <source>Copy report</source>
            <translation>報告をコピー</translation>
        </message>
        <message>
            <source>Remove</source>
            <translation>取り除く</translation>
        </message>
        <message>
            <source>Jobs</source>
            <translation>ジョブ</translation>
        </message>
        <message>
            <source>Outcome of the export</source>
            <translation>書き出しの結果</translation>
        </message>
        <message>
            <source>It begins when the queue is started.</source>
            <translation>待ち行列を開始すると始まります。</translation>
        </message>
        <message>
            <source>Change…</source>
            <translation>変更…</translation>
        </message>
        <message>
            <source>Shows above what was ordered, to be changed and exported again</source>
            <translation>注文した内容を上に戻し、変更して書き出し直せるようにします</translation>
        </message>
    </context>
    <context>
        <name>Dialog::JobQueue</name>
        <message>
            <source>File</source>
            <translation>ファイル</translation>
        </message>
        <message>
            <source>Preset</source>
            <translation>プリセット</translation>
        </message>
        <message>
            <source>State</source>
            <translation>状態</translation>
        </message>
    </context>
    <context>
        <name>Dialog::OutcomeText</name>
        <message>
            <source>The source is not there</source>
            <translation>ソースがありません</translation>
        </message>
        <message>
            <source>The source cannot be read</source>
            <translation>ソースを読めません</translation>
        </message>
        <message>
            <source>The source is damaged</source>
            <translation>ソースが壊れています</translation>
        </message>
        <message>
            <source>The file cannot be written</source>
            <translation>ファイルに書き込めません</translation>
        </message>
        <message>
            <source>The disk is full</source>
            <translation>ディスクがいっぱいです</translation>
        </message>
        <message>
            <source>Writing the file failed</source>
            <translation>ファイルの書き込みに失敗しました</translation>
        </message>
        <message>
            <source>An encoder is missing</source>
            <translation>エンコーダーがありません</translation>
        </message>
        <message>
            <source>The encoder refused its settings</source>
            <translation>エンコーダーが設定を受け付けません</translation>
        </message>
        <message>
            <source>Encoding failed</source>
            <translation>エンコードに失敗しました</translation>
        </message>
        <message>
            <source>Preparing the pictures or the sound failed</source>
            <translation>映像または音声の準備に失敗しました</translation>
        </message>
        <message>
            <source>The file's format cannot hold this</source>
            <translation>このファイル形式には入れられません</translation>
        </message>
        <message>
            <source>There is not enough memory</source>
            <translation>メモリーが足りません</translation>
        </message>
        <message>
            <source>The export made no progress</source>
            <translation>書き出しが進みませんでした</translation>
        </message>
        <message>
            <source>This cannot be exported</source>
            <translation>これは書き出せません</translation>
        </message>
        <message>
            <source>This is not supported</source>
            <translation>これには対応していません</translation>
        </message>
        <message>
            <source>The export failed</source>
            <translation>書き出しに失敗しました</translation>
        </message>
        <message>
            <source>Check that the file is where it was, and that its disk or share is connected.</source>
            <translation>ファイルが元の場所にあり、ディスクや共有が接続されているか確かめてください。</translation>
        </message>
        <message>
            <source>Export the part before the damage, or get the file anew.</source>
            <translation>壊れた所より前の部分を書き出すか、ファイルを入手し直してください。</translation>
        </message>
        <message>
            <source>Save the file under another name or in another folder.</source>
            <translation>別の名前か別のフォルダーに保存してください。</translation>
        </message>
        <message>
            <source>Make room on the disk, save to another one, or choose a lower quality.</source>
            <translation>空きを作るか、別のディスクに保存するか、品質を下げてください。</translation>
        </message>
        <message>
            <source>Check the disk, or save to another one.</source>
            <translation>ディスクを確かめるか、別のディスクに保存してください。</translation>
        </message>
        <message>
            <source>Choose another preset, or reset the custom settings.</source>
            <translation>別のプリセットを選ぶか、カスタム設定を元に戻してください。</translation>
        </message>
        <message>
            <source>Close other programs, or export a smaller picture.</source>
            <translation>ほかのプログラムを閉じるか、小さな画像で書き出してください。</translation>
        </message>
        <message>
            <source>Check that the disks and shares of source and file answer, then try again.</source>
            <translation>ソースとファイルのディスクや共有が応答するか確かめて、もう一度試してください。</translation>
        </message>
        <message numerus="yes">
            <source>%1, %2 × %3, %n frame(s)</source>
            <translation>
                <numerusform>%1、%2 × %3、%n フレーム</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1, %2, %n channel(s)</source>
            <translation>
                <numerusform>%1、%2、%n チャンネル</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 long, %2</source>
            <translation>長さ %1、%2</translation>
        </message>
        <message>
            <source>Made in %1. Read back to its last byte: it is what was ordered.</source>
            <translation>%1 で作成。最後のバイトまで読み返し、注文どおりです。</translation>
        </message>
        <message>
            <source>%1 is done</source>
            <translation>%1 が完成しました</translation>
        </message>
        <message>
            <source>Stopped</source>
            <translation>停止しました</translation>
        </message>
        <message>
            <source>Nothing was written.</source>
            <translation>何も書き込まれていません。</translation>
        </message>
        <message>
            <source>Error:</source>
            <translation>エラー:</translation>
        </message>
        <message>
            <source>Preset:</source>
            <translation>プリセット:</translation>
        </message>
        <message>
            <source>File:</source>
            <translation>ファイル:</translation>
        </message>
        <message>
            <source>Source</source>
            <translation>ソース</translation>
        </message>
        <message>
            <source>Warning</source>
            <translation>警告</translation>
        </message>
        <message>
            <source>Note</source>
            <translation>注意</translation>
        </message>
        <message>
            <source>Made in %1. Read back to its last byte.</source>
            <translation>%1 で作成。最後のバイトまで読み直しました。</translation>
        </message>
        <message numerus="yes">
            <source>and %n more, in the details</source>
            <translation>
                <numerusform>ほか %n 件は詳細にあります</numerusform>
            </translation>
        </message>
    </context>
    <context>
        <name>Dialog::OutputName</name>
        <message>
            <source>%1 (export)</source>
            <comment>a file's name</comment>
            <translation>%1 (書き出し)</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PeoplesText</name>
        <message>
            <source>a few seconds</source>
            <translation>数秒</translation>
        </message>
        <message numerus="yes">
            <source>about %n second(s)</source>
            <translation>
                <numerusform>約 %n 秒</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>about %n minute(s)</source>
            <translation>
                <numerusform>約 %n 分</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>about %n hour(s)</source>
            <translation>
                <numerusform>約 %n 時間</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 frames/s</source>
            <translation>%1 フレーム/秒</translation>
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
            <translation>%1、使えません: %2</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PresetObstacle</name>
        <message>
            <source>%1 does not take %2</source>
            <translation>%1 は %2 に対応していません</translation>
        </message>
        <message>
            <source>%1 takes no side below %2 pixels</source>
            <translation>%1 は %2 ピクセル未満の辺に対応していません</translation>
        </message>
        <message>
            <source>The source has no sound</source>
            <translation>ソースに音声がありません</translation>
        </message>
        <message>
            <source>The source has no picture</source>
            <translation>ソースに映像がありません</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PresetPane</name>
        <message>
            <source>For&amp;mat:</source>
            <translation>形式(&amp;M):</translation>
        </message>
        <message>
            <source>&amp;Search:</source>
            <translation>検索(&amp;S):</translation>
        </message>
        <message>
            <source>Codec, size or name</source>
            <translation>コーデック、サイズ、名前</translation>
        </message>
        <message>
            <source>Presets</source>
            <translation>プリセット</translation>
        </message>
        <message>
            <source>No preset of this format has these words.</source>
            <translation>この形式にこの言葉を含むプリセットはありません。</translation>
        </message>
        <message>
            <source>“%1” stays chosen.</source>
            <translation>「%1」が選ばれたままです。</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PresetText</name>
        <message>
            <source>%1 picture, %2 × %3</source>
            <translation>%1 映像、%2 × %3</translation>
        </message>
        <message>
            <source>%1 picture, up to %2 × %3</source>
            <translation>%1 映像、最大 %2 × %3</translation>
        </message>
        <message>
            <source>, lossless</source>
            <translation>、可逆</translation>
        </message>
        <message>
            <source>, two passes</source>
            <translation>、2 パス</translation>
        </message>
        <message>
            <source>%1 sound</source>
            <translation>%1 音声</translation>
        </message>
    </context>
    <context>
        <name>Dialog::RangeStrip</name>
        <message>
            <source>From %1 to %2</source>
            <translation>%1 から %2 まで</translation>
        </message>
    </context>
    <context>
        <name>Dialog::SettingsPane</name>
        <message>
            <source>Qualit&amp;y:</source>
            <translation>品質(&amp;Y):</translation>
        </message>
        <message>
            <source>C&amp;ustom settings</source>
            <translation>カスタム設定(&amp;U)</translation>
        </message>
        <message>
            <source>Si&amp;ze:</source>
            <translation>サイズ(&amp;Z):</translation>
        </message>
        <message>
            <source>Frame &amp;rate:</source>
            <translation>フレームレート(&amp;R):</translation>
        </message>
        <message>
            <source>Rate &amp;control:</source>
            <translation>レート制御(&amp;C):</translation>
        </message>
        <message>
            <source>Value:</source>
            <translation>値:</translation>
        </message>
        <message>
            <source>Quality on the codec's scale</source>
            <translation>コーデックの尺度での品質</translation>
        </message>
        <message>
            <source>Bitrate of the picture</source>
            <translation>映像のビットレート</translation>
        </message>
        <message>
            <source> kbit/s</source>
            <translation> kbit/s</translation>
        </message>
        <message>
            <source>as the preset says</source>
            <translation>プリセットのとおり</translation>
        </message>
        <message>
            <source>Sample ra&amp;te:</source>
            <translation>サンプルレート(&amp;T):</translation>
        </message>
        <message>
            <source>Sound &amp;bitrate:</source>
            <translation>音声ビットレート(&amp;B):</translation>
        </message>
        <message>
            <source>R&amp;eset</source>
            <translation>元に戻す(&amp;E)</translation>
        </message>
        <message>
            <source>Range</source>
            <translation>範囲</translation>
        </message>
        <message>
            <source>&amp;Whole</source>
            <translation>全体(&amp;W)</translation>
        </message>
        <message>
            <source>P&amp;art</source>
            <translation>一部(&amp;A)</translation>
        </message>
        <message>
            <source>Between mar&amp;kers</source>
            <translation>マーカー間(&amp;K)</translation>
        </message>
        <message>
            <source>Range on the timeline</source>
            <translation>タイムライン上の範囲</translation>
        </message>
        <message>
            <source>Everything is exported, from start to end.</source>
            <translation>最初から最後まで、すべて書き出します。</translation>
        </message>
        <message>
            <source>&amp;In point:</source>
            <translation>イン点(&amp;I):</translation>
        </message>
        <message>
            <source>Start</source>
            <translation>先頭</translation>
        </message>
        <message>
            <source>Hours, minutes and seconds, as 1:02:03.5, or frames, as 120f</source>
            <translation>時・分・秒 (1:02:03.5) またはフレーム (120f)</translation>
        </message>
        <message>
            <source>Out &amp;point:</source>
            <translation>アウト点(&amp;P):</translation>
        </message>
        <message>
            <source>End</source>
            <translation>末尾</translation>
        </message>
        <message>
            <source>&amp;First marker:</source>
            <translation>最初のマーカー(&amp;F):</translation>
        </message>
        <message>
            <source>Endin&amp;g marker:</source>
            <translation>終わりのマーカー(&amp;G):</translation>
        </message>
        <message>
            <source>Wit&amp;h picture</source>
            <translation>映像を含める(&amp;H)</translation>
        </message>
        <message>
            <source>With soun&amp;d</source>
            <translation>音声を含める(&amp;D)</translation>
        </message>
        <message>
            <source>E&amp;nding:</source>
            <translation>エンディング(&amp;N):</translation>
        </message>
        <message>
            <source>Fi&amp;le:</source>
            <translation>ファイル(&amp;L):</translation>
        </message>
        <message>
            <source>Sa&amp;ve as…</source>
            <translation>名前を付けて保存(&amp;V)…</translation>
        </message>
        <message>
            <source>as the source</source>
            <translation>ソースのとおり</translation>
        </message>
        <message>
            <source>None</source>
            <translation>なし</translation>
        </message>
        <message>
            <source>As the preset says</source>
            <translation>プリセットのとおり</translation>
        </message>
        <message>
            <source>Constant quality</source>
            <translation>品質一定</translation>
        </message>
        <message>
            <source>Average bitrate</source>
            <translation>平均ビットレート</translation>
        </message>
        <message>
            <source>%1 long</source>
            <translation>長さ %1</translation>
        </message>
        <message>
            <source>Very roughly %1</source>
            <translation>ごくおおよそ %1</translation>
        </message>
        <message>
            <source>About %1</source>
            <translation>約 %1</translation>
        </message>
        <message>
            <source>%1 free</source>
            <translation>空き %1</translation>
        </message>
        <message>
            <source>The folder is not there</source>
            <translation>フォルダーがありません</translation>
        </message>
        <message>
            <source>This may be too much for the disk</source>
            <translation>ディスクに入りきらないかもしれません</translation>
        </message>
        <message>
            <source>A file of this name is there already</source>
            <translation>この名前のファイルは既にあります</translation>
        </message>
        <message>
            <source>Save the export as</source>
            <translation>書き出しの保存先</translation>
        </message>
        <message>
            <source>Files of this preset (*.%1)</source>
            <translation>このプリセットのファイル (*.%1)</translation>
        </message>
        <message>
            <source>All files (*)</source>
            <translation>すべてのファイル (*)</translation>
        </message>
        <message>
            <source>Reset the custom settings</source>
            <translation>カスタム設定を元に戻す</translation>
        </message>
        <message>
            <source>Channels:</source>
            <translation>チャンネル:</translation>
        </message>
        <message>
            <source>First pass:</source>
            <translation>1パス目:</translation>
        </message>
        <message>
            <source>Mono</source>
            <translation>モノラル</translation>
        </message>
        <message>
            <source>Stereo</source>
            <translation>ステレオ</translation>
        </message>
        <message>
            <source>Quadraphonic</source>
            <translation>4チャンネル</translation>
        </message>
        <message>
            <source>Whole pictures</source>
            <translation>元の大きさの画像</translation>
        </message>
        <message>
            <source>Pictures of half the size</source>
            <translation>半分の大きさの画像</translation>
        </message>
        <message>
            <source>The folder does not answer</source>
            <translation>フォルダーが応答しません</translation>
        </message>
        <message>
            <source>This is one of the inputs</source>
            <translation>これは入力のひとつです</translation>
        </message>
        <message>
            <source>This is a folder; write the name of a file in it</source>
            <translation>これはフォルダーです。その中のファイル名を書いてください</translation>
        </message>
    </context>
    <context>
        <name>Dialog::SourceMedia</name>
        <message>
            <source>Start</source>
            <translation>先頭</translation>
        </message>
        <message>
            <source>End</source>
            <translation>末尾</translation>
        </message>
        <message>
            <source>There is nothing in it to export</source>
            <translation>書き出すものがありません</translation>
        </message>
        <message numerus="yes">
            <source>%1 and %n more</source>
            <translation>
                <numerusform>%1 ほか %n 件</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 × %2</source>
            <translation>%1 × %2</translation>
        </message>
        <message>
            <source>no picture</source>
            <translation>映像なし</translation>
        </message>
        <message>
            <source>no sound</source>
            <translation>音声なし</translation>
        </message>
        <message>
            <source>Chapter %1</source>
            <translation>チャプター%1</translation>
        </message>
    </context>
    <context>
        <name>main</name>
        <message>
            <source>Exports media files, or a timeline, from a window.</source>
            <translation>メディアファイルやタイムラインをウィンドウから書き出します。</translation>
        </message>
        <message>
            <source>Media files, one after the other, or one timeline.</source>
            <translation>続けて並べるメディアファイル、または 1 つのタイムライン。</translation>
        </message>
        <message>
            <source>Shows this.</source>
            <translation>このヘルプを表示します。</translation>
        </message>
        <message>
            <source>Shows the version.</source>
            <translation>バージョンを表示します。</translation>
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
            <translation>ウェブ</translation>
        </message>
        <message>
            <source>small-files</source>
            <translation>小さなファイル</translation>
        </message>
        <message>
            <source>editing</source>
            <translation>編集</translation>
        </message>
        <message>
            <source>pictures</source>
            <translation>連番画像</translation>
        </message>
        <message>
            <source>high-dynamic-range</source>
            <translation>ハイダイナミックレンジ</translation>
        </message>
        <message>
            <source>two-pass</source>
            <translation>2 パス</translation>
        </message>
        <message>
            <source>audio</source>
            <translation>音声</translation>
        </message>
        <message>
            <source>high</source>
            <translation>高</translation>
        </message>
        <message>
            <source>medium</source>
            <translation>中</translation>
        </message>
        <message>
            <source>low</source>
            <translation>低</translation>
        </message>
        <message>
            <source>best</source>
            <translation>最高</translation>
        </message>
        <message>
            <source>draft</source>
            <translation>下書き</translation>
        </message>
        <message>
            <source>mp4-h264-2160p</source>
            <translation>MP4（H.264 と AAC）、最大 2160p</translation>
        </message>
        <message>
            <source>mp4-h264-1440p</source>
            <translation>MP4（H.264 と AAC）、最大 1440p</translation>
        </message>
        <message>
            <source>mp4-h264-1080p</source>
            <translation>MP4（H.264 と AAC）、最大 1080p</translation>
        </message>
        <message>
            <source>mp4-h264-720p</source>
            <translation>MP4（H.264 と AAC）、最大 720p</translation>
        </message>
        <message>
            <source>mp4-h264-480p</source>
            <translation>MP4（H.264 と AAC）、最大 480p</translation>
        </message>
        <message>
            <source>mp4-h264-source</source>
            <translation>MP4（H.264 と AAC）、ソースのサイズ、高品質</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p</source>
            <translation>MP4（HEVC と AAC）、最大 1080p</translation>
        </message>
        <message>
            <source>mp4-mpeg4-720p</source>
            <translation>MP4（MPEG-4 Visual と AAC）、最大 720p、古い再生機向け</translation>
        </message>
        <message>
            <source>webm-vp9-2160p</source>
            <translation>WebM（VP9 と Opus）、最大 2160p</translation>
        </message>
        <message>
            <source>webm-vp9-1080p</source>
            <translation>WebM（VP9 と Opus）、最大 1080p</translation>
        </message>
        <message>
            <source>webm-vp9-720p</source>
            <translation>WebM（VP9 と Opus）、最大 720p</translation>
        </message>
        <message>
            <source>mkv-hevc-2160p</source>
            <translation>Matroska（HEVC と AAC）、最大 2160p</translation>
        </message>
        <message>
            <source>mkv-hevc-1080p</source>
            <translation>Matroska（HEVC と AAC）、最大 1080p</translation>
        </message>
        <message>
            <source>mkv-ffv1-flac</source>
            <translation>Matroska（FFV1 と FLAC）、可逆アーカイブ</translation>
        </message>
        <message>
            <source>mov-prores-2160p</source>
            <translation>QuickTime（ProRes 422 HQ と PCM）、最大 2160p</translation>
        </message>
        <message>
            <source>mov-prores-1080p</source>
            <translation>QuickTime（ProRes 422 HQ と PCM）、最大 1080p</translation>
        </message>
        <message>
            <source>mp4-hevc-2160p-hdr</source>
            <translation>MP4（HEVC 10 ビット と AAC）、最大 2160p、ハイダイナミックレンジを保持</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p-hdr</source>
            <translation>MP4（HEVC 10 ビット と AAC）、最大 1080p、ハイダイナミックレンジを保持</translation>
        </message>
        <message>
            <source>webm-vp9-2160p-hdr</source>
            <translation>WebM（VP9 10 ビット と Opus）、最大 2160p、ハイダイナミックレンジを保持</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-hdr</source>
            <translation>WebM（VP9 10 ビット と Opus）、最大 1080p、ハイダイナミックレンジを保持</translation>
        </message>
        <message>
            <source>mp4-av1-2160p-hdr</source>
            <translation>MP4（AV1 10 ビット と AAC）、最大 2160p、ハイダイナミックレンジを保持</translation>
        </message>
        <message>
            <source>mp4-av1-1080p-hdr</source>
            <translation>MP4（AV1 10 ビット と AAC）、最大 1080p、ハイダイナミックレンジを保持</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-2pass</source>
            <translation>MP4（H.264 と AAC）、最大 1080p、2 パス</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-6mbps-2pass</source>
            <translation>MP4（H.264 と AAC）、最大 1080p、2 パスで 6 Mbit/s</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-constant-2pass</source>
            <translation>MP4（H.264 と AAC）、最大 1080p、2 パスで固定ビットレート</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p-2pass</source>
            <translation>MP4（HEVC と AAC）、最大 1080p、2 パス</translation>
        </message>
        <message>
            <source>mp4-mpeg4-720p-2pass</source>
            <translation>MP4（MPEG-4 Visual と AAC）、最大 720p、古い再生機向け、2 パス</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-2pass</source>
            <translation>WebM（VP9 と Opus）、最大 1080p、2 パス</translation>
        </message>
        <message>
            <source>m4a-aac</source>
            <translation>M4A（AAC）、音声のみ</translation>
        </message>
        <message>
            <source>mp3</source>
            <translation>MP3、音声のみ</translation>
        </message>
        <message>
            <source>flac</source>
            <translation>FLAC、音声のみ、可逆</translation>
        </message>
        <message>
            <source>wav</source>
            <translation>WAV（PCM）、音声のみ、可逆</translation>
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
            <translation>MP4（H.264 と AAC）、最大 1080p、毎秒 60 フレーム</translation>
        </message>
        <message>
            <source>mp4-h264-vertical</source>
            <translation>MP4（H.264 と AAC）、縦長 1080x1920</translation>
        </message>
        <message>
            <source>mp4-h264-square</source>
            <translation>MP4（H.264 と AAC）、正方形 1080x1080</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-silent</source>
            <translation>MP4（H.264）、最大 1080p、映像のみ</translation>
        </message>
        <message>
            <source>mov-h264-2160p</source>
            <translation>QuickTime（H.264 と AAC）、最大 2160p</translation>
        </message>
        <message>
            <source>mov-h264-1080p</source>
            <translation>QuickTime（H.264 と AAC）、最大 1080p</translation>
        </message>
        <message>
            <source>mkv-h264-2160p</source>
            <translation>Matroska（H.264 と AAC）、最大 2160p</translation>
        </message>
        <message>
            <source>mkv-h264-1080p</source>
            <translation>Matroska（H.264 と AAC）、最大 1080p</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p-10bit</source>
            <translation>MP4（HEVC 10 ビット と AAC）、最大 1080p</translation>
        </message>
        <message>
            <source>mkv-hevc-1080p-10bit</source>
            <translation>Matroska（HEVC 10 ビット と AAC）、最大 1080p</translation>
        </message>
        <message>
            <source>mp4-av1-2160p</source>
            <translation>MP4（AV1 と Opus）、最大 2160p</translation>
        </message>
        <message>
            <source>mp4-av1-1080p</source>
            <translation>MP4（AV1 と Opus）、最大 1080p</translation>
        </message>
        <message>
            <source>webm-av1-2160p</source>
            <translation>WebM（AV1 と Opus）、最大 2160p</translation>
        </message>
        <message>
            <source>webm-av1-1080p</source>
            <translation>WebM（AV1 と Opus）、最大 1080p</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-silent</source>
            <translation>WebM（VP9）、最大 1080p、映像のみ</translation>
        </message>
        <message>
            <source>mov-dnxhd-2160p</source>
            <translation>QuickTime（DNxHR HQ と PCM）、最大 2160p</translation>
        </message>
        <message>
            <source>mov-dnxhd-1080p</source>
            <translation>QuickTime（DNxHR HQ と PCM）、最大 1080p</translation>
        </message>
        <message>
            <source>mov-prores-2160p-4444</source>
            <translation>QuickTime（ProRes 4444 と PCM）、最大 2160p、透明度を保持</translation>
        </message>
        <message>
            <source>mov-prores-1080p-4444</source>
            <translation>QuickTime（ProRes 4444 と PCM）、最大 1080p、透明度を保持</translation>
        </message>
        <message>
            <source>mov-prores-1080p-silent</source>
            <translation>QuickTime（ProRes 422 HQ）、最大 1080p、映像のみ</translation>
        </message>
        <message>
            <source>opus</source>
            <translation>Opus、音声のみ</translation>
        </message>
        <message>
            <source>ogg-vorbis</source>
            <translation>Ogg（Vorbis）、音声のみ</translation>
        </message>
        <message>
            <source>m4a-alac</source>
            <translation>M4A（ALAC）、音声のみ、可逆</translation>
        </message>
        <message>
            <source>ac3</source>
            <translation>AC-3、5.1 チャンネル、音声のみ</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-alpha</source>
            <translation>WebM（VP9 と Opus）、最大 1080p、透明度を保持</translation>
        </message>
        <message>
            <source>webp-webp-720p</source>
            <translation>アニメーション WebP、最大 720p、映像のみ、透明度を保持</translation>
        </message>
        <message>
            <source>webp-webp-480p</source>
            <translation>アニメーション WebP、最大 480p、映像のみ、透明度を保持</translation>
        </message>
        <message>
            <source>gif-gif-480p</source>
            <translation>GIF、最大 480p、映像のみ</translation>
        </message>
        <message>
            <source>gif-gif-240p</source>
            <translation>GIF、最大 240p、映像のみ</translation>
        </message>
        <message>
            <source>png-sequence</source>
            <translation>PNG 連番画像</translation>
        </message>
        <message>
            <source>png-sequence-alpha</source>
            <translation>PNG 連番画像、透明度を保持</translation>
        </message>
        <message>
            <source>jpeg-sequence</source>
            <translation>JPEG 連番画像</translation>
        </message>
        <message>
            <source>own-presets</source>
            <translation>自分のプリセット</translation>
        </message>
        <message>
            <source>demo</source>
            <translation>デモ</translation>
        </message>
    </context>
    <context>
        <name>ExportCore::ExportRun</name>
        <message>
            <source>The preset is %1, %2</source>
            <translation>プリセットは %1、%2</translation>
        </message>
        <message>
            <source>The inputs end before the out point, at %1: so does the file</source>
            <translation>入力はアウト点より前の %1 で終わります。ファイルもそこで終わります</translation>
        </message>
        <message>
            <source>There is no sound whose loudness could be changed</source>
            <translation>ラウドネスを変更できる音声がありません</translation>
        </message>
        <message>
            <source> left out: the file has no place for it</source>
            <translation>省略されます。ファイルに格納する場所がありません</translation>
        </message>
        <message>
            <source>The timeline's name is</source>
            <translation>タイムラインの名前は</translation>
        </message>
        <message>
            <source>The title is</source>
            <translation>タイトルは</translation>
        </message>
        <message>
            <source>Each of the timeline's markers is</source>
            <translation>タイムラインの各マーカーは</translation>
        </message>
        <message>
            <source>Each chapter is</source>
            <translation>各チャプターは</translation>
        </message>
        <message>
            <source>The timeline's time code is</source>
            <translation>タイムラインのタイムコードは</translation>
        </message>
        <message>
            <source>The time code is</source>
            <translation>タイムコードは</translation>
        </message>
        <message>
            <source>Subtitles that show nothing in the range are left out</source>
            <translation>範囲内に何も表示しない字幕は省略されます</translation>
        </message>
        <message>
            <source>None of the inputs has a picture: what is shown is black</source>
            <translation>どの入力にも映像がありません。黒が表示されます</translation>
        </message>
        <message>
            <source>None of the inputs has sound: what is heard is silence</source>
            <translation>どの入力にも音声がありません。無音になります</translation>
        </message>
        <message>
            <source>The folder of the finished file could not be brought to the disk</source>
            <translation>完成したファイルのフォルダーをディスクに書き込めませんでした</translation>
        </message>
    </context>
    <context>
        <name>Dialog::Sentence</name>
        <message>
            <source>%1; did you mean %2?</source>
            <translation>%1。もしかして %2 ですか？</translation>
        </message>
        <message>
            <source>%1; what comes before can be exported with --out %2</source>
            <translation>%1。それより前は、アウト点を %2 にすれば書き出せます</translation>
        </message>
        <message>
            <source>%1 (whichever export this comes from, each that runs is ended)</source>
            <translation>%1（どの書き出しによるものか不明なため、実行中のものはすべて終了します）</translation>
        </message>
        <message>
            <source>Cannot read "%1": %2</source>
            <translation>「%1」を読み込めません: %2</translation>
        </message>
        <message>
            <source>Cannot open "%1": %2</source>
            <translation>「%1」を開けません: %2</translation>
        </message>
        <message>
            <source>Cannot decode "%1": no decoder for %2</source>
            <translation>「%1」をデコードできません: %2 のデコーダーがありません</translation>
        </message>
        <message>
            <source>Cannot write "%1": %2</source>
            <translation>「%1」に書き込めません: %2</translation>
        </message>
        <message>
            <source>Cannot export "%1" beside other inputs: a timeline is exported alone</source>
            <translation>「%1」はほかの入力と一緒には書き出せません: タイムラインは単独で書き出します</translation>
        </message>
        <message>
            <source>Cannot export "%1": %2</source>
            <translation>「%1」を書き出せません: %2</translation>
        </message>
        <message>
            <source>Cannot make a file beside "%1": %2</source>
            <translation>「%1」と同じ場所にファイルを作成できません: %2</translation>
        </message>
        <message>
            <source>Cannot put the finished file at "%1": %2</source>
            <translation>完成したファイルを「%1」に置けません: %2</translation>
        </message>
        <message>
            <source>Cannot write "%1" to the disk: %2</source>
            <translation>「%1」をディスクに書き込めません: %2</translation>
        </message>
        <message>
            <source>The unfinished file of "%1" was removed or replaced</source>
            <translation>「%1」の作成途中のファイルが削除または置き換えられました</translation>
        </message>
        <message>
            <source>The output has become one of the inputs meanwhile</source>
            <translation>出力先が途中で入力の一つになりました</translation>
        </message>
        <message>
            <source>The output file "%1" cannot be written: %2</source>
            <translation>ファイル「%1」に書き込めません: %2</translation>
        </message>
        <message>
            <source>The output file "%1" cannot be created: %2</source>
            <translation>ファイル「%1」を作成できません: %2</translation>
        </message>
        <message>
            <source>The output file "%1" cannot be closed: %2</source>
            <translation>ファイル「%1」を閉じられません: %2</translation>
        </message>
        <message>
            <source>Writing the header of "%1": %2</source>
            <translation>「%1」のヘッダーの書き込み中: %2</translation>
        </message>
        <message>
            <source>Writing to "%1": %2</source>
            <translation>「%1」への書き込み中: %2</translation>
        </message>
        <message>
            <source>Completing "%1": %2</source>
            <translation>「%1」の完成処理中: %2</translation>
        </message>
        <message>
            <source>The file will take %1, but beside "%2" only %3 are free</source>
            <translation>ファイルは %1 になりますが、「%2」の場所の空きは %3 しかありません</translation>
        </message>
        <message>
            <source>The finished file was checked and found wrong: %1</source>
            <translation>完成したファイルを検査したところ、誤りがありました: %1</translation>
        </message>
        <message>
            <source>The finished file cannot be read to its end: %1</source>
            <translation>完成したファイルを最後まで読み込めません: %1</translation>
        </message>
        <message>
            <source>The finished file cannot be read: %1</source>
            <translation>完成したファイルを読み込めません: %1</translation>
        </message>
        <message>
            <source>The export did not start within %1: %2</source>
            <translation>書き出しが %1 以内に始まりませんでした: %2</translation>
        </message>
        <message>
            <source>The export did not start within %1</source>
            <translation>書き出しが %1 以内に始まりませんでした</translation>
        </message>
        <message>
            <source>The export made no progress for %1: %2</source>
            <translation>書き出しが %1 の間進みませんでした: %2</translation>
        </message>
        <message>
            <source>The export made no progress for %1</source>
            <translation>書き出しが %1 の間進みませんでした</translation>
        </message>
        <message>
            <source>Checking the finished file made no progress for %1: %2</source>
            <translation>完成したファイルの検査が %1 の間進みませんでした: %2</translation>
        </message>
        <message>
            <source>The export did not stop within %1: %2</source>
            <translation>書き出しが %1 以内に停止しませんでした: %2</translation>
        </message>
        <message>
            <source>Opening "%1" does not come to an end</source>
            <translation>「%1」を開く処理が終わりません</translation>
        </message>
        <message>
            <source>Reading "%1" does not come back</source>
            <translation>「%1」の読み込みが戻ってきません</translation>
        </message>
        <message>
            <source>Making a file beside "%1" does not come to an end</source>
            <translation>「%1」と同じ場所へのファイル作成が終わりません</translation>
        </message>
        <message>
            <source>Encoding, or writing "%1", does not come back</source>
            <translation>エンコードまたは「%1」への書き込みが戻ってきません</translation>
        </message>
        <message>
            <source>The in point %1 lies outside the inputs, which last %2</source>
            <translation>イン点 %1 は、長さ %2 の入力の外にあります</translation>
        </message>
        <message>
            <source>Nothing is left to export: the preset "%1" has %2</source>
            <translation>書き出すものが残っていません: プリセット「%1」は %2</translation>
        </message>
        <message>
            <source>Cannot load the presets: %1</source>
            <translation>プリセットを読み込めません: %1</translation>
        </message>
        <message>
            <source>Cannot set %1 to "%2": %3</source>
            <translation>%1を「%2」にはできません: %3</translation>
        </message>
        <message>
            <source>Cannot set %1: %2</source>
            <translation>%1は設定できません: %2</translation>
        </message>
        <message>
            <source>size</source>
            <translation>サイズ</translation>
        </message>
        <message>
            <source>frame-rate</source>
            <translation>フレームレート</translation>
        </message>
        <message>
            <source>bitrate</source>
            <translation>ビットレート</translation>
        </message>
        <message>
            <source>quality</source>
            <translation>品質</translation>
        </message>
        <message>
            <source>first-pass</source>
            <translation>1パス目</translation>
        </message>
        <message>
            <source>sample-rate</source>
            <translation>サンプルレート</translation>
        </message>
        <message>
            <source>channels</source>
            <translation>チャンネル</translation>
        </message>
        <message>
            <source>audio-bitrate</source>
            <translation>音声ビットレート</translation>
        </message>
        <message>
            <source>quality to %1</source>
            <translation>品質 %1</translation>
        </message>
        <message>
            <source>audio-bitrate to %1</source>
            <translation>音声ビットレート %1</translation>
        </message>
        <message>
            <source>bitrate to %1</source>
            <translation>ビットレート %1</translation>
        </message>
        <message>
            <source>a width of %1</source>
            <translation>幅 %1</translation>
        </message>
        <message>
            <source>a height of %1</source>
            <translation>高さ %1</translation>
        </message>
        <message>
            <source>a size of %1</source>
            <translation>サイズ %1</translation>
        </message>
        <message>
            <source>write pixels, as 1280x720</source>
            <translation>1280x720 のようにピクセルで書いてください</translation>
        </message>
        <message>
            <source>%1 is odd, and encoders need even sides</source>
            <translation>%1 は奇数ですが、エンコーダーには偶数の辺が必要です</translation>
        </message>
        <message>
            <source>a picture has at least 2x2 pixels</source>
            <translation>画像は少なくとも 2x2 ピクセルです</translation>
        </message>
        <message>
            <source>no side is longer than %1 pixels</source>
            <translation>どの辺も %1 ピクセルより長くできません</translation>
        </message>
        <message>
            <source>the preset "%1" is for pictures up to %2</source>
            <translation>プリセット「%1」は %2 までの映像用です</translation>
        </message>
        <message>
            <source>%1 takes no side below %2</source>
            <translation>%1 は %2 未満の辺を扱えません</translation>
        </message>
        <message>
            <source>%1 is too small for %2</source>
            <translation>%1 は %2 には小さすぎます</translation>
        </message>
        <message>
            <source>write frames a second, as 25, 29.97 or 30000/1001, film, pal, ntsc, ntsc-film or source</source>
            <translation>25、29.97、30000/1001 のように毎秒のフレーム数、または film、pal、ntsc、ntsc-film、source と書いてください</translation>
        </message>
        <message>
            <source>frame rates go from 1 to %1</source>
            <translation>フレームレートは 1 から %1 までです</translation>
        </message>
        <message>
            <source>%1 does not take %2, only %3</source>
            <translation>%1 は %2 を扱えません。扱えるのは %3 です</translation>
        </message>
        <message>
            <source>%1 does not take %2</source>
            <translation>%1 は %2 を扱えません</translation>
        </message>
        <message>
            <source>%1 takes %2 to %3 bit/s</source>
            <translation>%1 が扱えるのは %2 から %3 bit/s です</translation>
        </message>
        <message>
            <source>%1 takes %2 bit/s</source>
            <translation>%1 が扱えるのは %2 bit/s です</translation>
        </message>
        <message>
            <source>%1 takes whole numbers</source>
            <translation>%1 が扱えるのは整数です</translation>
        </message>
        <message>
            <source>%1 takes %2 to %3</source>
            <translation>%1 が扱えるのは %2 から %3 です</translation>
        </message>
        <message>
            <source>write bits a second, as 2500000, 2500k or 2.5M</source>
            <translation>2500000、2500k、2.5M のように毎秒のビット数を書いてください</translation>
        </message>
        <message>
            <source>bitrates go from 1 to %1 bit/s</source>
            <translation>ビットレートは 1 から %1 bit/s までです</translation>
        </message>
        <message>
            <source>the folder "%1" may not be listed: %2</source>
            <translation>フォルダー「%1」の内容を表示できません: %2</translation>
        </message>
        <message>
            <source>the folder "%1": %2</source>
            <translation>フォルダー「%1」: %2</translation>
        </message>
        <message>
            <source>"%1" is not a folder</source>
            <translation>「%1」はフォルダーではありません</translation>
        </message>
        <message>
            <source>the preset "%1" writes .%2, not .%3; no preset writes that</source>
            <translation>プリセット「%1」が書くのは .%2 で、.%3 ではありません。それを書くプリセットはありません</translation>
        </message>
        <message>
            <source>it holds neither picture nor sound that can be decoded (%1)</source>
            <translation>デコードできる映像も音声も含まれていません（%1）</translation>
        </message>
        <message>
            <source>it holds neither picture nor sound that can be decoded</source>
            <translation>デコードできる映像も音声も含まれていません</translation>
        </message>
        <message>
            <source>it takes more memory than there is</source>
            <translation>搭載量より多くのメモリが必要です</translation>
        </message>
        <message>
            <source>its pictures or sound stand in another file, which it names</source>
            <translation>映像または音声が、そこに名前のある別のファイルにあります</translation>
        </message>
        <message>
            <source>it is an animated WebP file, a kind that is written and not read</source>
            <translation>アニメーション WebP ファイルです。書き出しはできますが、読み込みはできません</translation>
        </message>
        <message>
            <source>&quot;%1&quot; would become larger than 4 GiB, which a WebP file cannot be: a shorter range, a lower quality or smaller pictures fit into one</source>
            <translation>「%1」が 4 GiB を超えてしまいますが、WebP ファイルはそれより大きくできません。範囲を短くするか、品質を下げるか、映像を小さくすれば収まります</translation>
        </message>
        <message>
            <source>it is a folder</source>
            <translation>フォルダーです</translation>
        </message>
        <message>
            <source>it is a pipe</source>
            <translation>パイプです</translation>
        </message>
        <message>
            <source>it is a socket</source>
            <translation>ソケットです</translation>
        </message>
        <message>
            <source>it is a device</source>
            <translation>デバイスです</translation>
        </message>
        <message>
            <source>it is not a regular file</source>
            <translation>通常のファイルではありません</translation>
        </message>
        <message>
            <source>it is empty</source>
            <translation>空です</translation>
        </message>
        <message>
            <source>it is one of the inputs</source>
            <translation>入力の一つです</translation>
        </message>
        <message>
            <source>it is one of the timeline's media</source>
            <translation>タイムラインのメディアの一つです</translation>
        </message>
        <message>
            <source>it exists already (--overwrite replaces it)</source>
            <translation>既に存在します</translation>
        </message>
        <message>
            <source>it does not name a file</source>
            <translation>ファイル名になっていません</translation>
        </message>
        <message>
            <source>it is a link that leads nowhere</source>
            <translation>リンク先がありません</translation>
        </message>
        <message>
            <source>No such file or directory</source>
            <translation>ファイルまたはフォルダーがありません</translation>
        </message>
        <message>
            <source>Permission denied</source>
            <translation>アクセスが拒否されました</translation>
        </message>
        <message>
            <source>Read-only file system</source>
            <translation>読み取り専用のファイルシステムです</translation>
        </message>
        <message>
            <source>No space left on device</source>
            <translation>デバイスに空き領域がありません</translation>
        </message>
        <message>
            <source>Disk quota exceeded</source>
            <translation>ディスククォータを超えました</translation>
        </message>
        <message>
            <source>File too large</source>
            <translation>ファイルが大きすぎます</translation>
        </message>
        <message>
            <source>File name too long</source>
            <translation>ファイル名が長すぎます</translation>
        </message>
        <message>
            <source>Input/output error</source>
            <translation>入出力エラー</translation>
        </message>
        <message>
            <source>Cannot allocate memory</source>
            <translation>メモリを確保できません</translation>
        </message>
        <message>
            <source>Invalid data found when processing input</source>
            <translation>データが無効です</translation>
        </message>
        <message>
            <source>End of file</source>
            <translation>ファイルの終わり</translation>
        </message>
        <message>
            <source>"%1" is damaged at %2: %3</source>
            <translation>「%1」は %2 で破損しています: %3</translation>
        </message>
        <message>
            <source>"%1" cannot be put on the timeline: it has no length</source>
            <translation>「%1」はタイムラインに置けません: 長さがありません</translation>
        </message>
        <message>
            <source>"%1": %2</source>
            <translation>「%1」: %2</translation>
        </message>
        <message>
            <source>left out: %1</source>
            <translation>省略: %1</translation>
        </message>
        <message>
            <source>%1 picture track (%2)</source>
            <translation>映像トラック %1 本（%2）</translation>
        </message>
        <message>
            <source>%1 picture tracks (%2)</source>
            <translation>映像トラック %1 本（%2）</translation>
        </message>
        <message>
            <source>%1 sound track (%2)</source>
            <translation>音声トラック %1 本（%2）</translation>
        </message>
        <message>
            <source>%1 sound tracks (%2)</source>
            <translation>音声トラック %1 本（%2）</translation>
        </message>
        <message>
            <source>%1 subtitle track (%2)</source>
            <translation>字幕トラック %1 本（%2）</translation>
        </message>
        <message>
            <source>%1 subtitle tracks (%2)</source>
            <translation>字幕トラック %1 本（%2）</translation>
        </message>
        <message>
            <source>%1 data track (%2)</source>
            <translation>データトラック %1 本（%2）</translation>
        </message>
        <message>
            <source>%1 data tracks (%2)</source>
            <translation>データトラック %1 本（%2）</translation>
        </message>
        <message>
            <source>%1 attached picture (%2)</source>
            <translation>添付画像 %1 点（%2）</translation>
        </message>
        <message>
            <source>%1 attached pictures (%2)</source>
            <translation>添付画像 %1 点（%2）</translation>
        </message>
        <message>
            <source>%1 attachment (%2)</source>
            <translation>添付ファイル %1 点（%2）</translation>
        </message>
        <message>
            <source>%1 attachments (%2)</source>
            <translation>添付ファイル %1 点（%2）</translation>
        </message>
        <message>
            <source>%1 chapter</source>
            <translation>チャプター %1 個</translation>
        </message>
        <message>
            <source>%1 chapters</source>
            <translation>チャプター %1 個</translation>
        </message>
        <message>
            <source>tag (%1)</source>
            <translation>タグ（%1）</translation>
        </message>
        <message>
            <source>tags (%1)</source>
            <translation>タグ（%1）</translation>
        </message>
        <message>
            <source>title</source>
            <translation>タイトル</translation>
        </message>
        <message>
            <source>tags</source>
            <translation>タグ</translation>
        </message>
        <message>
            <source>Titles of chapters are cut off: the file has no place for such long ones</source>
            <translation>チャプターの題名は切り詰められます。ファイルにはそれほど長い題名を格納できません</translation>
        </message>
        <message>
            <source>what is missing is black, or what lies on lower tracks where there is something, and silent</source>
            <translation>欠けている部分は黒、または下のトラックの内容になり、無音になります</translation>
        </message>
        <message>
            <source>has no picture: what is shown there is black</source>
            <translation>映像がありません: その部分は黒になります</translation>
        </message>
        <message>
            <source>has no sound: what is heard there is silence</source>
            <translation>音声がありません: その部分は無音になります</translation>
        </message>
        <message>
            <source>roughly %1</source>
            <translation>約 %1</translation>
        </message>
        <message>
            <source>about %1</source>
            <translation>およそ %1</translation>
        </message>
        <message>
            <source>The first pass looks at whole pictures in place of halves: %1</source>
            <translation>1 回目のパスは半分のサイズではなく全体の画像を調べます: %1</translation>
        </message>
        <message>
            <source>a side of the picture has less than %1 pixels</source>
            <translation>画像の一辺が %1 ピクセル未満です</translation>
        </message>
        <message>
            <source>nobody knows how long the film is</source>
            <translation>映像の長さが分かりません</translation>
        </message>
        <message>
            <source>the film is shorter than %1 seconds</source>
            <translation>映像が %1 秒より短いです</translation>
        </message>
        <message>
            <source>%1 with its options takes no statistics of smaller ones</source>
            <translation>%1 は現在のオプションでは小さい画像の統計を使えません</translation>
        </message>
        <message>
            <source>%1 language is left out: the inputs' differ</source>
            <translation>%1の言語は省略されます。入力ごとに異なります</translation>
        </message>
        <message>
            <source>%1 language, %2, is left out: the file has no place for it</source>
            <translation>%1の言語 %2 は省略されます。ファイルに格納する場所がありません</translation>
        </message>
        <message>
            <source>The picture's</source>
            <translation>映像</translation>
        </message>
        <message>
            <source>The sound's</source>
            <translation>音声</translation>
        </message>
        <message>
            <source>%1; presets that do: %2</source>
            <translation>%1。できるプリセット: %2</translation>
        </message>
        <message>
            <source>the preset &quot;%1&quot; writes .%2, not .%3</source>
            <translation>プリセット「%1」が書くのは .%2 で、.%3 ではありません</translation>
        </message>
        <message>
            <source>%1; choose one of the preset's qualities (--quality %2)</source>
            <translation>%1。プリセットの品質から選んでください: %2</translation>
        </message>
        <message>
            <source>pictures of these names exist already, &quot;%1&quot; to begin with (--overwrite replaces them)</source>
            <translation>これらの名前の画像が既に存在します。最初は「%1」です</translation>
        </message>
        <message>
            <source>and %1 more (validate tells them all)</source>
            <translation>ほか %1 件</translation>
        </message>
        <message>
            <source>“%1”</source>
            <comment>a preset</comment>
            <translation>「%1」</translation>
        </message>
        <message>
            <source>make it first</source>
            <translation>先に作成してください</translation>
        </message>
        <message>
            <source>name the files in it</source>
            <translation>その中のファイルを指定してください</translation>
        </message>
        <message>
            <source>name a file in it</source>
            <translation>その中のファイル名を指定してください</translation>
        </message>
        <message>
            <source>write what comes out of it to a file</source>
            <translation>出てくる内容をファイルに書いてください</translation>
        </message>
        <message>
            <source>it is not a media file, or its beginning is damaged</source>
            <translation>メディアファイルではないか、先頭が壊れています</translation>
        </message>
        <message>
            <source>its index is missing: the recording was never finished, or copied in part</source>
            <translation>索引がありません。録画が完了していないか、一部しかコピーされていません</translation>
        </message>
        <message>
            <source>it is not a media file</source>
            <translation>メディアファイルではありません</translation>
        </message>
        <message>
            <source>A picture could not be decoded: %1</source>
            <translation>映像をデコードできませんでした: %1</translation>
        </message>
        <message>
            <source>A block of sound could not be decoded: %1</source>
            <translation>音声の一部をデコードできませんでした: %1</translation>
        </message>
        <message>
            <source>its picture could not be decoded: %1</source>
            <translation>その画像をデコードできませんでした: %1</translation>
        </message>
        <message>
            <source>%1, clip "%2": %3 (/%4)</source>
            <translation>%1、クリップ「%2」: %3 (/%4)</translation>
        </message>
        <message>
            <source>%1, clip: %2 (/%3)</source>
            <translation>%1、クリップ: %2 (/%3)</translation>
        </message>
        <message>
            <source>%1, transition: %2 (/%3)</source>
            <translation>%1、トランジション: %2 (/%3)</translation>
        </message>
        <message>
            <source>%1, stack: %2 (/%3)</source>
            <translation>%1、スタック: %2 (/%3)</translation>
        </message>
        <message>
            <source>%1, track: %2 (/%3)</source>
            <translation>%1、トラック: %2 (/%3)</translation>
        </message>
        <message>
            <source>%1, clip "%2": %3</source>
            <translation>%1、クリップ「%2」: %3</translation>
        </message>
        <message>
            <source>%1, transition "%2": %3</source>
            <translation>%1、トランジション「%2」: %3</translation>
        </message>
        <message>
            <source>%1, stack "%2": %3</source>
            <translation>%1、スタック「%2」: %3</translation>
        </message>
        <message>
            <source>%1, track "%2": %3</source>
            <translation>%1、トラック「%2」: %3</translation>
        </message>
        <message>
            <source>stack</source>
            <translation>スタック</translation>
        </message>
        <message>
            <source>track</source>
            <translation>トラック</translation>
        </message>
        <message>
            <source>the effect "%1" is not known and is left out</source>
            <translation>エフェクト「%1」は不明なので省かれます</translation>
        </message>
        <message>
            <source>it has no pictures, and its place in a track of pictures stays empty</source>
            <translation>映像がないので、映像トラックでのその場所は空のままです</translation>
        </message>
        <message>
            <source>it has no sound, and its place in a sound track stays silent</source>
            <translation>音声がないので、音声トラックでのその場所は無音です</translation>
        </message>
        <message>
            <source>transitions of the type "%1" are made as dissolves</source>
            <translation>種類「%1」のトランジションはディゾルブになります</translation>
        </message>
        <message>
            <source>its media "%1" lasts %2</source>
            <translation>そのメディア「%1」の長さは %2</translation>
        </message>
        <message>
            <source>its media "%1" cannot be opened: %2</source>
            <translation>そのメディア「%1」を開けません: %2</translation>
        </message>
        <message>
            <source>its media "%1" has no pictures</source>
            <translation>そのメディア「%1」には映像がありません</translation>
        </message>
        <message>
            <source>its media "%1" has no sound</source>
            <translation>そのメディア「%1」には音声がありません</translation>
        </message>
        <message>
            <source>the clip goes %1 before its beginning and %2</source>
            <translation>クリップはその始まりより %1 前に及び、%2</translation>
        </message>
        <message>
            <source>the clip goes %1 beyond it and %2</source>
            <translation>クリップはその終わりを %1 超え、%2</translation>
        </message>
        <message>
            <source>the transition before the clip goes %1 before its beginning and %2</source>
            <translation>クリップの前のトランジションはその始まりより %1 前に及び、%2</translation>
        </message>
        <message>
            <source>the transition before the clip goes %1 beyond it and %2</source>
            <translation>クリップの前のトランジションはその終わりを %1 超え、%2</translation>
        </message>
        <message>
            <source>the transition behind the clip goes %1 before its beginning and %2</source>
            <translation>クリップの後のトランジションはその始まりより %1 前に及び、%2</translation>
        </message>
        <message>
            <source>the transition behind the clip goes %1 beyond it and %2</source>
            <translation>クリップの後のトランジションはその終わりを %1 超え、%2</translation>
        </message>
        <message>
            <source>holds the first picture for %1</source>
            <translation>最初の画像を %1 保持します</translation>
        </message>
        <message>
            <source>holds the last picture for %1</source>
            <translation>最後の画像を %1 保持します</translation>
        </message>
        <message>
            <source>shows nothing but the first picture</source>
            <translation>最初の画像だけを表示します</translation>
        </message>
        <message>
            <source>shows nothing but the last picture</source>
            <translation>最後の画像だけを表示します</translation>
        </message>
        <message>
            <source>is silent for %1</source>
            <translation>%1 無音になります</translation>
        </message>
        <message>
            <source>is silent throughout</source>
            <translation>終始無音です</translation>
        </message>
        <message>
            <source>stack "%1"</source>
            <translation>スタック「%1」</translation>
        </message>
        <message>
            <source>track "%1"</source>
            <translation>トラック「%1」</translation>
        </message>
        <message>
            <source>the media "%1" %2</source>
            <translation>メディア「%1」%2</translation>
        </message>
        <message>
            <source>its media %1</source>
            <translation>そのメディア%1</translation>
        </message>
        <message>
            <source>is not there</source>
            <translation>がありません</translation>
        </message>
        <message>
            <source>is no plain file</source>
            <translation>は通常のファイルではありません</translation>
        </message>
        <message>
            <source>stands on another machine</source>
            <translation>は別のコンピューターにあります</translation>
        </message>
        <message>
            <source>stands at a path of Windows</source>
            <translation>は Windows のパスにあります</translation>
        </message>
        <message>
            <source>is not named</source>
            <translation>に名前がありません</translation>
        </message>
        <message>
            <source>is said to be missing</source>
            <translation>はタイムラインで欠けているとされています</translation>
        </message>
        <message>
            <source>lasts %1</source>
            <translation>の長さは %1</translation>
        </message>
        <message>
            <source>it lies between two frames and is not seen</source>
            <translation>2 つのフレームの間にあるため表示されません</translation>
        </message>
        <message>
            <source>%1: smaller pictures, or fewer exports at a time, take less</source>
            <translation>%1。映像を小さくするか、同時に行う書き出しを減らすと、少なくて済みます</translation>
        </message>
        <message>
            <source>There is too little memory</source>
            <translation>メモリが足りません</translation>
        </message>
        <message>
            <source>%1 gets too little memory for pictures of %2, each of which takes up to %3 MiB in one piece</source>
            <translation>%2 の映像には、1 枚につき連続した最大 %3 MiB のメモリが必要ですが、%1 はそれを確保できません</translation>
        </message>
        <message>
            <source>%1 gets too little memory for pictures of %2</source>
            <translation>%1 は %2 の映像に必要なメモリを確保できません</translation>
        </message>
        <message>
            <source>Pixels that are not square become square, %1 as %2: viewers of such files know no others</source>
            <translation>正方形でない画素を正方形にします（%1 を %2 に）。この種のファイルの表示ソフトは、ほかの形を扱えません</translation>
        </message>
        <message>
            <source>its sound has a gap of %1 at %2, filled with silence</source>
            <translation>音声に %2 で %1 の途切れがあり、無音で埋めました</translation>
        </message>
        <message>
            <source>its sound has more gaps, all filled with silence</source>
            <translation>音声にはほかにも途切れがあり、すべて無音で埋めました</translation>
        </message>
        <message>
            <source>its sound changes to %1 on the way; it is converted to %2, as it begins</source>
            <translation>音声が途中で %1 に変わります。始まりと同じ %2 に変換しました</translation>
        </message>
        <message>
            <source>A damaged picture was concealed</source>
            <translation>壊れた映像を補いました</translation>
        </message>
        <message>
            <source>Timestamps run backwards; pictures are left out</source>
            <translation>タイムスタンプが逆行しています。映像の一部を省きました</translation>
        </message>
        <message>
            <source>Reading ended early: %1</source>
            <translation>読み込みが途中で終わりました: %1</translation>
        </message>
        <message>
            <source>Sound is missing at the end; silence stands in for it</source>
            <translation>終わりの音声がなく、無音で補いました</translation>
        </message>
        <message>
            <source>Sound is missing; silence stands in for it</source>
            <translation>音声がなく、無音で補いました</translation>
        </message>
    </context>
</TS>
