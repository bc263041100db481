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
        <message>
            <source>Move up</source>
            <translation>上へ</translation>
        </message>
        <message>
            <source>Move down</source>
            <translation>下へ</translation>
        </message>
        <message>
            <source>Move &amp;up</source>
            <translation>上へ(&amp;U)</translation>
        </message>
        <message>
            <source>Move &amp;down</source>
            <translation>下へ(&amp;D)</translation>
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
        <message>
            <source>"%1" is scaled down to the size of the first pictures, %2</source>
            <translation>「%1」は最初の映像のサイズ %2 に縮小されます</translation>
        </message>
        <message>
            <source>"%1" and %2 more are scaled down to the size of the first pictures, %3</source>
            <translation>「%1」ほか %2 件は最初の映像のサイズ %3 に縮小されます</translation>
        </message>
        <message>
            <source>--set size=WxH chooses another</source>
            <translation>カスタム設定でほかのサイズを選べます</translation>
        </message>
        <message>
            <source>--set size=%1 chooses another</source>
            <translation>カスタム設定で %1 などほかのサイズを選べます</translation>
        </message>
        <message>
            <source>"%1" is shown at the rate of the first pictures, %2 instead of %3 frames a second</source>
            <translation>「%1」は最初の映像のフレームレートで表示されます（毎秒 %3 ではなく %2 フレーム）</translation>
        </message>
        <message>
            <source>"%1" and %2 more are shown at the rate of the first pictures, %3 instead of up to %4 frames a second</source>
            <translation>「%1」ほか %2 件は最初の映像のフレームレートで表示されます（毎秒最大 %4 ではなく %3 フレーム）</translation>
        </message>
        <message>
            <source>--set frame-rate=RATE chooses another</source>
            <translation>カスタム設定でほかのフレームレートを選べます</translation>
        </message>
        <message>
            <source>--set frame-rate=%1 chooses another</source>
            <translation>カスタム設定で %1 などほかのフレームレートを選べます</translation>
        </message>
        <message>
            <source>"%1" is mixed down to the channels of the first sound, %2</source>
            <translation>「%1」は最初の音声のチャンネル（%2）にミックスダウンされます</translation>
        </message>
        <message>
            <source>"%1" and %2 more are mixed down to the channels of the first sound, %3</source>
            <translation>「%1」ほか %2 件は最初の音声のチャンネル（%3）にミックスダウンされます</translation>
        </message>
        <message>
            <source>--set channels=%1 chooses others</source>
            <translation>カスタム設定で %1 などほかのチャンネルを選べます</translation>
        </message>
        <message>
            <source>variable frame rate</source>
            <translation>可変フレームレート</translation>
        </message>
        <message>
            <source>shown at %1 frames a second</source>
            <translation>毎秒 %1 フレームで表示</translation>
        </message>
        <message>
            <source>which leaves out %1 of its %2 pictures</source>
            <translation>%2 枚のうち %1 枚が省かれます</translation>
        </message>
        <message>
            <source>which leaves out %1 of the first %2 pictures</source>
            <translation>最初の %2 枚のうち %1 枚が省かれます</translation>
        </message>
        <message>
            <source>which leaves out pictures</source>
            <translation>一部の映像は省かれます</translation>
        </message>
        <message>
            <source>the file does not say when most of its pictures are shown, nor how many a second; both are reckoned, and some pictures may be missing</source>
            <translation>ファイルには大半の映像の表示時刻も毎秒のフレーム数も書かれていません。どちらも推定したもので、一部の映像が欠けることがあります</translation>
        </message>
        <message>
            <source>pictures of %1 are encoded without their last column or line, as %2</source>
            <translation>%1 の映像は最後の列または行を除き、%2 としてエンコードされます</translation>
        </message>
        <message>
            <source>pictures of %1 are encoded as %2: %3</source>
            <translation>%1 の映像は %2 としてエンコードされます: %3</translation>
        </message>
        <message>
            <source>%1 bits became %2</source>
            <translation>%1 ビットが %2 ビットになりました</translation>
        </message>
        <message>
            <source>floating point became %1</source>
            <translation>浮動小数点が %1 ビットになりました</translation>
        </message>
        <message>
            <source>colour became gray</source>
            <translation>カラーがグレーになりました</translation>
        </message>
        <message>
            <source>colour of %1 became %2</source>
            <translation>色の %1 が %2 になりました</translation>
        </message>
        <message>
            <source>the sensor's mosaic became pixels</source>
            <translation>センサーのモザイクが画素になりました</translation>
        </message>
        <message>
            <source>transparency was left out</source>
            <translation>透明度は省かれました</translation>
        </message>
        <message>
            <source>over black</source>
            <translation>背景は黒です</translation>
        </message>
        <message>
            <source>its mastering display or light levels are not the ones that the export tells, which are those of all clips together</source>
            <translation>マスタリングディスプレイまたは光量の値が、書き出しに記される値と異なります。記されるのはすべてのクリップを合わせた値です</translation>
        </message>
        <message>
            <source>does not fully tell its colour, taken for %1</source>
            <translation>色の情報が完全ではないため、%1 とみなしました</translation>
        </message>
        <message>
            <source>colours converted from %1 to %2</source>
            <translation>色を %1 から %2 に変換しました</translation>
        </message>
        <message>
            <source>high dynamic range (%1, up to %2 cd/m2), tone-mapped to %3 (mobius curve)</source>
            <translation>ハイダイナミックレンジ（%1、最大 %2 cd/m²）を %3 にトーンマッピングしました（Mobius 曲線）</translation>
        </message>
        <message>
            <source>standard dynamic range, placed in %1 with its white at %2</source>
            <translation>標準ダイナミックレンジを、白を %2 として %1 に配置しました</translation>
        </message>
        <message>
            <source>%1 left out: its pictures are shown as they are without it</source>
            <translation>%1 は省略されます。映像はそれなしの状態で表示されます</translation>
        </message>
        <message>
            <source>its pictures change to %1 on the way; they are fitted like those of %2 with which it begins</source>
            <translation>映像が途中で %1 に変わります。始まりの %2 の映像と同じように収めます</translation>
        </message>
        <message>
            <source>interlaced (%1), deinterlaced to a picture for each field</source>
            <translation>インターレース（%1）を、フィールドごとに 1 枚の映像へ解除しました</translation>
        </message>
        <message>
            <source>interlaced (%1), deinterlaced</source>
            <translation>インターレース（%1）を解除しました</translation>
        </message>
        <message>
            <source>top field first</source>
            <translation>トップフィールドが先</translation>
        </message>
        <message>
            <source>bottom field first</source>
            <translation>ボトムフィールドが先</translation>
        </message>
        <message>
            <source>coded field by field; each field is shown as a picture of its own</source>
            <translation>フィールドごとに符号化されています。各フィールドを 1 枚の映像として表示します</translation>
        </message>
        <message>
            <source>its pictures are to be turned by %1 degrees, and are turned by %2</source>
            <translation>映像は %1 度回転する指定ですが、%2 度回転します</translation>
        </message>
        <message>
            <source>begins without a keyframe: what lies before the first picture that can be decoded, %1, is left out</source>
            <translation>キーフレームなしで始まります。デコードできる最初の映像より前の %1 は省かれます</translation>
        </message>
        <message>
            <source>of its %1 pictures %2 is missing, "%3" to begin with</source>
            <translation>%1 枚のうち %2 枚がありません。「%3」です</translation>
        </message>
        <message>
            <source>of its %1 pictures %2 are missing, "%3" to begin with</source>
            <translation>%1 枚のうち %2 枚がありません。最初は「%3」です</translation>
        </message>
        <message>
            <source>pictures of it are missing, "%1" to begin with</source>
            <translation>一部の画像がありません。最初は「%1」です</translation>
        </message>
        <message>
            <source>the one before, or else the next one, stands in each one's place</source>
            <translation>それぞれの代わりに前の画像を、なければ次の画像を使います</translation>
        </message>
        <message>
            <source>black stands in each one's place</source>
            <translation>それぞれの代わりに黒を使います</translation>
        </message>
        <message>
            <source>not all its pictures are alike: "%1" is %2</source>
            <translation>画像がすべて同じではありません。「%1」は %2 です</translation>
        </message>
        <message>
            <source>all are brought to the first one's size and pixel format, %1</source>
            <translation>すべて最初の画像のサイズと画素形式 %1 にそろえます</translation>
        </message>
        <message>
            <source>the timestamps of its sound drift away from its samples; it is stretched to follow them</source>
            <translation>音声のタイムスタンプがサンプルからずれていくため、それに合わせて伸縮しました</translation>
        </message>
        <message>
            <source>many packets of its sound have one time; they follow each other</source>
            <translation>音声の多くのパケットが同じ時刻です。順に続けて再生します</translation>
        </message>
        <message>
            <source>the file does not say what the sound's encoder put in front: the sound may be up to %1 late</source>
            <translation>音声エンコーダーが先頭に付けた分がファイルに書かれていません。音声が最大 %1 遅れることがあります</translation>
        </message>
        <message>
            <source>the file does not say what the sound's encoder put in front: %1 are taken for that, and left out</source>
            <translation>音声エンコーダーが先頭に付けた分がファイルに書かれていません。%1 をそれとみなして省きました</translation>
        </message>
        <message>
            <source>its edit list changes the speed of %1, or holds it; that is not followed, and parts may be missing or come twice</source>
            <translation>編集リストが%1の速度を変えるか止めています。それには従わないため、一部が欠けたり重なったりすることがあります</translation>
        </message>
        <message>
            <source>its edit list has a pause in %1; that is not followed, and something else may come in its place</source>
            <translation>編集リストで%1に休止があります。それには従わないため、代わりに別のものが入ることがあります</translation>
        </message>
        <message>
            <source>its picture</source>
            <translation>映像</translation>
        </message>
        <message>
            <source>its sound</source>
            <translation>音声</translation>
        </message>
        <message>
            <source>its samples in floating point became integers of %1 bits, which cut off what lies above full scale</source>
            <translation>浮動小数点のサンプルが %1 ビットの整数になり、フルスケールを超える分は切り取られました</translation>
        </message>
        <message>
            <source>the %1 bits of each sample became %2</source>
            <translation>各サンプルの %1 ビットが %2 ビットになりました</translation>
        </message>
        <message>
            <source>sound of %1 is encoded as %2 that do not say where they are heard</source>
            <translation>%1 の音声は、どこで聞こえるかを示さない %2 としてエンコードされます</translation>
        </message>
        <message>
            <source>sound of %1 is encoded as %2</source>
            <translation>%1 の音声は %2 としてエンコードされます</translation>
        </message>
        <message>
            <source>%1 that do not say where they are heard are encoded as %2</source>
            <translation>どこで聞こえるかを示さない %1 は %2 としてエンコードされます</translation>
        </message>
        <message>
            <source>where it runs backwards it is silent</source>
            <translation>逆再生の部分は無音です</translation>
        </message>
        <message>
            <source>where it stands still it is silent</source>
            <translation>静止している部分は無音です</translation>
        </message>
        <message>
            <source>time code</source>
            <translation>タイムコード</translation>
        </message>
        <message>
            <source>its time code is the file's, which runs on where this medium comes again</source>
            <translation>そのタイムコードがファイルのタイムコードになり、この素材が再び現れる所でも続けて進みます</translation>
        </message>
        <message>
            <source>%1 picture tracks</source>
            <translation>映像トラック %1 本</translation>
        </message>
        <message>
            <source>%1 sound tracks</source>
            <translation>音声トラック %1 本</translation>
        </message>
        <message>
            <source>%1 subtitle tracks</source>
            <translation>字幕トラック %1 本</translation>
        </message>
        <message>
            <source>%1 data tracks</source>
            <translation>データトラック %1 本</translation>
        </message>
        <message>
            <source>%1 attached pictures</source>
            <translation>添付画像 %1 点</translation>
        </message>
        <message>
            <source>%1 language, %2, is told as %3</source>
            <translation>%1の言語 %2 は %3 として記録されます</translation>
        </message>
        <message>
            <source>%1 title is left out: the inputs' differ</source>
            <translation>%1のタイトルは省略されます。入力ごとに異なります</translation>
        </message>
        <message>
            <source>%1 title, "%2", is left out: the file has no place for it</source>
            <translation>%1のタイトル「%2」は省略されます。ファイルに格納する場所がありません</translation>
        </message>
        <message>
            <source>Sound track %1's</source>
            <translation>音声トラック %1 </translation>
        </message>
        <message>
            <source>The subtitles'</source>
            <translation>字幕</translation>
        </message>
        <message>
            <source>The subtitles' titles are left out: the inputs' differ</source>
            <translation>字幕のタイトルは省略されます。入力ごとに異なります</translation>
        </message>
        <message>
            <source>Styles of subtitles are left out: the inputs' differ</source>
            <translation>字幕のスタイルは省略されます。入力ごとに異なります</translation>
        </message>
        <message>
            <source>Styles of subtitles are left out: the file has no place for them</source>
            <translation>字幕のスタイルは省略されます。ファイルに格納する場所がありません</translation>
        </message>
        <message>
            <source>Colours of subtitles are left out: the file has no place for them</source>
            <translation>字幕の色は省略されます。ファイルに格納する場所がありません</translation>
        </message>
        <message>
            <source>Fonts of subtitles and their sizes are left out: the file has no place for them</source>
            <translation>字幕のフォントとその大きさは省略されます。ファイルに格納する場所がありません</translation>
        </message>
        <message>
            <source>Lines through the text of subtitles are left out: the file has no place for them</source>
            <translation>字幕の取り消し線は省略されます。ファイルに格納する場所がありません</translation>
        </message>
        <message>
            <source>Places of subtitles on the picture are left out: the file has none for them</source>
            <translation>字幕の画面上の位置は省略されます。ファイルに格納する場所がありません</translation>
        </message>
        <message>
            <source>Of more than %1 subtitles at one time the first ones are kept: the file shows one at a time</source>
            <translation>同時に %1 件を超える字幕は、最初のものだけ残ります。ファイルが一度に表示するのは 1 件です</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 cannot be read and are left out</source>
            <translation>トラック %2 の字幕のうち %1 件は読み込めず、省略されます</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 are longer than a subtitle can be and are left out</source>
            <translation>トラック %2 の字幕のうち %1 件は長すぎるため省略されます</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 are more than can be kept and are left out</source>
            <translation>トラック %2 の字幕のうち %1 件は上限を超えるため省略されます</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 have a place of their own on the picture, which is left out</source>
            <translation>トラック %2 の字幕のうち %1 件は画面上の独自の位置が省略されます</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 name speakers or classes, which are left out</source>
            <translation>トラック %2 の字幕のうち %1 件は話者またはクラスの指定が省略されます</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 have tags that WebVTT does not know, which are left out</source>
            <translation>トラック %2 の字幕のうち %1 件には WebVTT にないタグがあり、そのタグは省略されます</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 are no UTF-8 and were read as Windows-1252</source>
            <translation>トラック %2 の字幕のうち %1 件は UTF-8 ではなく、Windows-1252 として読み込みました</translation>
        </message>
        <message>
            <source>of its %1 chapters the first %2 are read</source>
            <translation>%1 個のチャプターのうち最初の %2 個を読み込みます</translation>
        </message>
        <message>
            <source>the tag "%1" is left out: it holds %2 bytes</source>
            <translation>タグ「%1」は %2 バイトあるため省略されます</translation>
        </message>
        <message>
            <source>the tag "%1" is no UTF-8 and was read as Windows-1252</source>
            <translation>タグ「%1」は UTF-8 ではなく、Windows-1252 として読み込みました</translation>
        </message>
        <message>
            <source>Timestamps jump by %1</source>
            <translation>タイムスタンプが %1 飛んでいます</translation>
        </message>
        <message>
            <source>what follows was joined on %1</source>
            <translation>続きは%1つなぎました</translation>
        </message>
        <message>
            <source>without a gap</source>
            <translation>途切れなく</translation>
        </message>
        <message>
            <source>with the picture held for %1, in which its sound goes on</source>
            <translation>映像を %1 止め、その間も音声を続けて</translation>
        </message>
        <message>
            <source>Its sound lasts for %1, but its timestamps only for %2; the rest is left out</source>
            <translation>音声の長さは %1 ですが、タイムスタンプは %2 しかありません。残りは省かれます</translation>
        </message>
        <message>
            <source>The file ends at %1, and another file of its kind, which is not read, follows behind it: it is incomplete</source>
            <translation>ファイルは %1 で終わり、後ろに同じ種類の別のファイルが続いていますが、これは読み込まれません。ファイルは不完全です</translation>
        </message>
        <message>
            <source>The file ends at %1, but its header claims %2: it is incomplete</source>
            <translation>ファイルは %1 で終わりますが、ヘッダーでは %2 です。ファイルは不完全です</translation>
        </message>
        <message>
            <source>The file ends at %1, and %2 that it announces are missing: it is incomplete</source>
            <translation>ファイルは %1 で終わり、示されている %2 がありません。ファイルは不完全です</translation>
        </message>
        <message>
            <source>Behind what can be seen and heard, %1 are missing</source>
            <translation>見聞きできる部分の後ろの %1 がありません</translation>
        </message>
        <message>
            <source>The file has no last page; it may have been cut off</source>
            <translation>ファイルに最後のページがありません。途中で切れている可能性があります</translation>
        </message>
        <message>
            <source>The file ends within a packet: it was cut off, and what it ended with is missing</source>
            <translation>ファイルがパケットの途中で終わっています。切れており、終わりの部分がありません</translation>
        </message>
        <message>
            <source>The %1 track begins so late that the beginning of the file does not tell of it, and is not read: it is missing</source>
            <translation>%1トラックの始まりが遅く、ファイルの先頭に記載がないため読み込まれません。そのトラックは欠けています</translation>
        </message>
        <message>
            <source>nothing that can be read stands in the next %1 MiB</source>
            <translation>次の %1 MiB に読み込めるものがありません</translation>
        </message>
        <message>
            <source>nothing of the %1 track was found before reading ended early: %2</source>
            <translation>%1 トラックの内容が見つからないまま、読み込みが途中で終わりました: %2</translation>
        </message>
        <message>
            <source>nothing of the %1 track was found in the first %2 MiB; if it begins later, it is missing</source>
            <translation>最初の %2 MiB に %1 トラックの内容が見つかりませんでした。それより後に始まる場合は欠けています</translation>
        </message>
        <message>
            <source>no frame of the %1 track can be decoded</source>
            <translation>%1 トラックのフレームを一つもデコードできません</translation>
        </message>
        <message>
            <source>A damaged picture was concealed: "%1"</source>
            <translation>壊れた映像を補いました: 「%1」</translation>
        </message>
        <message>
            <source>it holds no picture that can be decoded</source>
            <translation>デコードできる画像が含まれていません</translation>
        </message>
        <message>
            <source>it holds no picture</source>
            <translation>画像が含まれていません</translation>
        </message>
        <message>
            <source>Looking at "%1" does not come to an end</source>
            <translation>「%1」の確認が終わりません</translation>
        </message>
        <message>
            <source>Reading the finished file and moving it to "%1" does not come to an end</source>
            <translation>完成したファイルの読み込みと「%1」への移動が終わりません</translation>
        </message>
        <message>
            <source>The folder of "%1" does not answer: an unfinished file may be left there, %2</source>
            <translation>「%1」のフォルダーが応答しません。作成途中のファイル %2 が残っている可能性があります</translation>
        </message>
        <message>
            <source>Your own presets are left out: %1</source>
            <translation>ご自分のプリセットは省かれます: %1</translation>
        </message>
        <message>
            <source>%1 of the %2 pictures that it shows are not there, the first one is "%3"</source>
            <translation>表示する %2 枚の画像のうち %1 枚がありません。最初は「%3」です</translation>
        </message>
        <message>
            <source>a tone stands among pictures, where it is not heard</source>
            <translation>音が映像の中に置かれており、聞こえません</translation>
        </message>
        <message>
            <source>bars stand among sound, where they are not seen</source>
            <translation>カラーバーが音声の中に置かれており、表示されません</translation>
        </message>
        <message>
            <source>pictures stand among sound</source>
            <translation>映像が音声の中に置かれています</translation>
        </message>
        <message>
            <source>%1 more clips lie between two frames and are not seen</source>
            <translation>ほか %1 個のクリップが 2 つのフレームの間にあるため表示されません</translation>
        </message>
        <message>
            <source>the track does not say what it holds; it is taken for pictures</source>
            <translation>トラックの内容が示されていないため、映像とみなします</translation>
        </message>
        <message>
            <source>tracks of the kind "%1" are left out</source>
            <translation>種類「%1」のトラックは省かれます</translation>
        </message>
        <message>
            <source>a transition stands outside of a track and is left out</source>
            <translation>トラックの外にあるトランジションは省かれます</translation>
        </message>
        <message>
            <source>"%1" is not known</source>
            <translation>「%1」は不明です</translation>
        </message>
        <message>
            <source>there is a gap in its place</source>
            <translation>代わりに空白を置きます</translation>
        </message>
        <message>
            <source>it has no length either, and what follows begins at its place</source>
            <translation>長さもないため、続きはその位置から始まります</translation>
        </message>
        <message>
            <source>it lasts no time and is left out</source>
            <translation>長さがないため省かれます</translation>
        </message>
        <message>
            <source>it follows another transition and is left out</source>
            <translation>別のトランジションの直後にあるため省かれます</translation>
        </message>
        <message>
            <source>there is no time for it, and it is left out</source>
            <translation>入る時間がないため省かれます</translation>
        </message>
        <message>
            <source>it is longer than the clips beside it and is shortened to them</source>
            <translation>隣のクリップより長いため、それに合わせて短くします</translation>
        </message>
        <message>
            <source>the stack "%1" before it has too little beyond the cut: for %2 ms its picture stands still, and nothing is heard of it</source>
            <translation>その前のスタック「%1」はカットより後ろが足りません。%2 ミリ秒の間、映像が止まり、音も聞こえません</translation>
        </message>
        <message>
            <source>the stack "%1" before it has too little beyond the cut: for %2 ms nothing is heard of it</source>
            <translation>その前のスタック「%1」はカットより後ろが足りません。%2 ミリ秒の間、音が聞こえません</translation>
        </message>
        <message>
            <source>the stack "%1" behind it has too little before the cut: for %2 ms its picture stands still, and nothing is heard of it</source>
            <translation>その後のスタック「%1」はカットより前が足りません。%2 ミリ秒の間、映像が止まり、音も聞こえません</translation>
        </message>
        <message>
            <source>the stack "%1" behind it has too little before the cut: for %2 ms nothing is heard of it</source>
            <translation>その後のスタック「%1」はカットより前が足りません。%2 ミリ秒の間、音が聞こえません</translation>
        </message>
        <message>
            <source>the global start time lies outside of 0 to 24 hours, and its time code wraps around</source>
            <translation>全体の開始時刻が 0 から 24 時間の範囲外のため、タイムコードは一周します</translation>
        </message>
        <message>
            <source>frames that are missing are an error, not "%1"</source>
            <translation>欠けているフレームは「%1」ではなくエラーとして扱います</translation>
        </message>
        <message>
            <source>the tone's frequency is no number from 1 to 20000; it sounds at 1000 Hz</source>
            <translation>音の周波数が 1 から 20000 までの数ではないため、1000 Hz で鳴ります</translation>
        </message>
        <message>
            <source>the colour is not told as red, green and blue from 0 to 1 or as "#rrggbb"; it is black</source>
            <translation>色が 0 から 1 の赤・緑・青でも「#rrggbb」でも示されていないため、黒になります</translation>
        </message>
        <message>
            <source>it is no marker and is left out</source>
            <translation>マーカーではないため省かれます</translation>
        </message>
        <message>
            <source>the marker is left out</source>
            <translation>マーカーは省かれます</translation>
        </message>
        <message>
            <source>a NUL stands in the name, which ends there</source>
            <translation>名前に NUL があるため、そこで終わります</translation>
        </message>
        <message>
            <source>%1 more findings are not listed</source>
            <translation>ほか %1 件は表示していません</translation>
        </message>
        <message>
            <source>"%1" stands in it more than once; the last one counts</source>
            <translation>「%1」が複数あります。最後のものを使います</translation>
        </message>
        <message>
            <source>it goes beyond what there is of its contents and %1</source>
            <translation>中身の範囲を超えており、%1</translation>
        </message>
        <message>
            <source>holds the first picture throughout</source>
            <translation>終始、最初の画像を保持します</translation>
        </message>
        <message>
            <source>holds the last picture throughout</source>
            <translation>終始、最後の画像を保持します</translation>
        </message>
        <message>
            <source>its media "%1" is not among its references</source>
            <translation>そのメディア「%1」は参照の中にありません</translation>
        </message>
        <message>
            <source>is of the unknown schema "%1"</source>
            <translation>のスキーマ「%1」は不明です</translation>
        </message>
        <message>
            <source>is the unknown generator "%1"</source>
            <translation>は不明なジェネレーター「%1」です</translation>
        </message>
        <message>
            <source>is a sequence of pictures without a proper numbering, rate or name</source>
            <translation>は番号、レート、名前のいずれかが正しくない連番画像です</translation>
        </message>
        <message>
            <source>its entry "%1" %2</source>
            <translation>そのエントリー「%1」%2</translation>
        </message>
        <message>
            <source>is in it twice</source>
            <translation>が重複しています</translation>
        </message>
        <message>
            <source>cannot be unpacked: %1</source>
            <translation>を展開できません: %1</translation>
        </message>
        <message>
            <source>has a name that leads out of the archive</source>
            <translation>の名前がアーカイブの外を指しています</translation>
        </message>
        <message>
            <source>%1 is newer than what can be read, %2</source>
            <translation>%1 は読み込める %2 より新しいものです</translation>
        </message>
        <message>
            <source>has no name</source>
            <translation>に名前がありません</translation>
        </message>
        <message>
            <source>has a name with a zero byte</source>
            <translation>の名前にゼロバイトがあります</translation>
        </message>
        <message>
            <source>is a URL of the scheme "%1"; only files are opened</source>
            <translation>はスキーム「%1」の URL です。開けるのはファイルだけです</translation>
        </message>
        <message>
            <source>cannot be looked at: %1</source>
            <translation>を確認できません: %1</translation>
        </message>
        <message>
            <source>is no folder</source>
            <translation>はフォルダーではありません</translation>
        </message>
        <message>
            <source>%1, marker "%2": %3</source>
            <translation>%1、マーカー「%2」: %3</translation>
        </message>
        <message>
            <source>stack "%1": %2</source>
            <translation>スタック「%1」: %2</translation>
        </message>
        <message>
            <source>track "%1": %2</source>
            <translation>トラック「%1」: %2</translation>
        </message>
        <message>
            <source>clip "%1": %2</source>
            <translation>クリップ「%1」: %2</translation>
        </message>
        <message>
            <source>The mix goes %1 dB beyond full scale, %2</source>
            <translation>ミックスがフルスケールを %1 dB 超えており、%2</translation>
        </message>
        <message>
            <source>and its peaks are turned down</source>
            <translation>ピークを下げました</translation>
        </message>
        <message>
            <source>which samples in integers cannot hold</source>
            <translation>整数のサンプルには収まりません</translation>
        </message>
        <message>
            <source>stacks and tracks stand too deep in each other</source>
            <translation>スタックとトラックの入れ子が深すぎます</translation>
        </message>
        <message>
            <source>a stack has no list of children</source>
            <translation>スタックに子要素のリストがありません</translation>
        </message>
        <message>
            <source>a track has no list of children</source>
            <translation>トラックに子要素のリストがありません</translation>
        </message>
        <message>
            <source>the track lasts longer than a year</source>
            <translation>トラックが 1 年より長くなっています</translation>
        </message>
        <message>
            <source>nothing tells how long it lasts</source>
            <translation>長さが示されていません</translation>
        </message>
        <message>
            <source>a transition reaches a negative time to one side</source>
            <translation>トランジションの片側の長さが負です</translation>
        </message>
        <message>
            <source>%1 timelines in it are called "%2"; their numbers choose one: %3</source>
            <translation>「%2」という名前のタイムラインが %1 個あります。番号で選べます: %3</translation>
        </message>
        <message>
            <source>there is no timeline in it</source>
            <translation>タイムラインが含まれていません</translation>
        </message>
        <message>
            <source>there is no timeline "%1" in it; there are %2</source>
            <translation>タイムライン「%1」は含まれていません。あるのは %2 です</translation>
        </message>
        <message>
            <source>there are several timelines in it, and none was chosen: %1</source>
            <translation>複数のタイムラインが含まれていますが、選ばれていません: %1</translation>
        </message>
        <message>
            <source>the timeline has no tracks</source>
            <translation>タイムラインにトラックがありません</translation>
        </message>
        <message>
            <source>the folder that it stands in cannot be told: %1</source>
            <translation>置かれているフォルダーがわかりません: %1</translation>
        </message>
        <message>
            <source>there is nothing on the timeline</source>
            <translation>タイムラインに何もありません</translation>
        </message>
        <message>
            <source>there is no content.otio in it</source>
            <translation>content.otio が含まれていません</translation>
        </message>
        <message>
            <source>the speed is no number from -100 to 100</source>
            <translation>速度が -100 から 100 までの数ではありません</translation>
        </message>
        <message>
            <source>it is no plain file</source>
            <translation>通常のファイルではありません</translation>
        </message>
        <message>
            <source>it is not there</source>
            <translation>ありません</translation>
        </message>
        <message>
            <source>it is longer than a timeline should be (1 GiB)</source>
            <translation>タイムラインとしては大きすぎます（1 GiB）</translation>
        </message>
        <message>
            <source>it became shorter while it was read</source>
            <translation>読み込み中に短くなりました</translation>
        </message>
        <message>
            <source>half of a surrogate pair stands in it, which is no letter</source>
            <translation>サロゲートペアの片方だけがあり、文字になりません</translation>
        </message>
        <message>
            <source>it nests deeper than a timeline should (%1)</source>
            <translation>入れ子がタイムラインとしては深すぎます（%1）</translation>
        </message>
        <message>
            <source>it is no JSON: %1 (line %2, column %3)</source>
            <translation>JSON ではありません: %1（%2 行 %3 列）</translation>
        </message>
        <message>
            <source>the %1 of a time is no number</source>
            <translation>時間の%1が数ではありません</translation>
        </message>
        <message>
            <source>the %1 of a time is not finite</source>
            <translation>時間の%1が有限ではありません</translation>
        </message>
        <message>
            <source>a time is missing</source>
            <translation>時間がありません</translation>
        </message>
        <message>
            <source>a time lies more than a year away</source>
            <translation>時間が 1 年より離れています</translation>
        </message>
        <message>
            <source>a time's rate is not above 0 or beyond all measure</source>
            <translation>時間のレートが 0 以下か、大きすぎます</translation>
        </message>
        <message>
            <source>a range of time is missing</source>
            <translation>時間の範囲がありません</translation>
        </message>
        <message>
            <source>a duration is negative</source>
            <translation>長さが負です</translation>
        </message>
        <message>
            <source>is encrypted</source>
            <translation>は暗号化されています</translation>
        </message>
        <message>
            <source>claims to hold %1 in %2 bytes, which media never do</source>
            <translation>は %2 バイトで %1 を収めているとされていますが、メディアではあり得ません</translation>
        </message>
        <message>
            <source>takes %1, and where it would be unpacked %2 are free</source>
            <translation>には %1 必要ですが、展開先の空きは %2 です</translation>
        </message>
        <message>
            <source>makes %1 of an archive of %2 bytes, which media never do</source>
            <translation>を含めると %2 バイトのアーカイブが %1 になりますが、メディアではあり得ません</translation>
        </message>
        <message>
            <source>is not unpacked: that was stopped</source>
            <translation>は展開されません。中止されました</translation>
        </message>
        <message>
            <source>is damaged: it does not hold what it claims to</source>
            <translation>は破損しています。示された内容がありません</translation>
        </message>
        <message>
            <source>is damaged: %1</source>
            <translation>は破損しています: %1</translation>
        </message>
        <message>
            <source>cannot be unpacked</source>
            <translation>を展開できません</translation>
        </message>
        <message>
            <source>it is no zip archive, or a damaged one: %1</source>
            <translation>ZIP アーカイブではないか、破損しています: %1</translation>
        </message>
        <message>
            <source>it has more entries than a timeline should (%1)</source>
            <translation>エントリーがタイムラインとしては多すぎます（%1）</translation>
        </message>
        <message>
            <source>its entry %1 is damaged</source>
            <translation>エントリー %1 が破損しています</translation>
        </message>
        <message>
            <source>it is an archive of version %1, and version 1 is known</source>
            <translation>バージョン %1 のアーカイブですが、対応しているのはバージョン 1 です</translation>
        </message>
        <message>
            <source>there is no folder to unpack it to: %1</source>
            <translation>展開先のフォルダーがありません: %1</translation>
        </message>
        <message>
            <source>mono</source>
            <translation>モノラル</translation>
        </message>
        <message>
            <source>stereo</source>
            <translation>ステレオ</translation>
        </message>
        <message>
            <source>%1 channels</source>
            <translation>%1 チャンネル</translation>
        </message>
        <message>
            <source>%1 channels (%2)</source>
            <translation>%1 チャンネル（%2）</translation>
        </message>
        <message>
            <source>%1 (track %2)</source>
            <translation>%1（トラック %2）</translation>
        </message>
        <message>
            <source>%1 attachments</source>
            <translation>添付ファイル %1 点</translation>
        </message>
        <message>
            <source>%1 tags</source>
            <translation>タグ %1 件</translation>
        </message>
        <message>
            <source>%1 bytes</source>
            <translation>%1 バイト</translation>
        </message>
        <message>
            <source>picture</source>
            <translation>映像</translation>
        </message>
        <message>
            <source>sound</source>
            <translation>音声</translation>
        </message>
        <message>
            <source>%1 at its start and %2</source>
            <translation>始まりで%1、%2</translation>
        </message>
        <message>
            <source>%1 at its start</source>
            <translation>始まりで%1</translation>
        </message>
        <message>
            <source>%1 at its end</source>
            <translation>終わりで%1</translation>
        </message>
        <message>
            <source>%1, nor below the folder for media</source>
            <translation>%1。メディア用フォルダーの下にもありません</translation>
        </message>
        <message>
            <source>stack: %1</source>
            <translation>スタック: %1</translation>
        </message>
        <message>
            <source>track: %1</source>
            <translation>トラック: %1</translation>
        </message>
        <message>
            <source>%1 (/%2)</source>
            <translation>%1 (/%2)</translation>
        </message>
        <message>
            <source>value</source>
            <translation>値</translation>
        </message>
        <message>
            <source>rate</source>
            <translation>レート</translation>
        </message>
    </context>
</TS>
