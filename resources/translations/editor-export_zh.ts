<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
    <context>
        <name>Dialog::ExportForm</name>
        <message>
            <source>This preset is not possible: %1</source>
            <translation>此预设不可用：%1</translation>
        </message>
        <message>
            <source>Neither picture nor sound would be in the file</source>
            <translation>文件中既没有画面也没有声音</translation>
        </message>
        <message>
            <source>The first marker must come before the ending one</source>
            <translation>起始标记必须在结束标记之前</translation>
        </message>
        <message>
            <source>“%1” is no time; write minutes and seconds as 1:30, or frames as 120f</source>
            <translation>“%1”不是时间；请写成 1:30（分秒）或 120f（帧）</translation>
        </message>
        <message>
            <source>The in point must lie before the out point, and before the end</source>
            <translation>入点必须在出点和结尾之前</translation>
        </message>
        <message>
            <source>What was opened cannot be exported</source>
            <translation>打开的内容无法导出</translation>
        </message>
        <message>
            <source>The source is being opened</source>
            <translation>正在打开来源</translation>
        </message>
        <message>
            <source>Open what is to be exported</source>
            <translation>请打开要导出的内容</translation>
        </message>
        <message>
            <source>The file needs a name</source>
            <translation>文件需要名称</translation>
        </message>
        <message>
            <source>The custom settings do not fit</source>
            <translation>自定义设置不适用</translation>
        </message>
        <message>
            <source>Write the file with its whole folder, or choose it with “Save as”</source>
            <translation>请写出文件的完整文件夹，或用“另存为”选择</translation>
        </message>
        <message>
            <source>The file is what is exported; save it under another name</source>
            <translation>该文件就是要导出的来源；请用其他名称保存</translation>
        </message>
    </context>
    <context>
        <name>Dialog::ExportWindow</name>
        <message>
            <source>Export</source>
            <translation>导出</translation>
        </message>
        <message>
            <source>&amp;Open…</source>
            <translation>打开(&amp;O)…</translation>
        </message>
        <message>
            <source>Use black for what is missing</source>
            <translation>缺失部分用黑色代替</translation>
        </message>
        <message>
            <source>Add to &amp;queue</source>
            <translation>加入队列(&amp;Q)</translation>
        </message>
        <message>
            <source>E&amp;xport</source>
            <translation>导出(&amp;X)</translation>
        </message>
        <message>
            <source>Open what is to be exported</source>
            <translation>请打开要导出的内容</translation>
        </message>
        <message>
            <source>Nothing is open</source>
            <translation>未打开任何内容</translation>
        </message>
        <message>
            <source>Drop media files or a timeline here</source>
            <translation>将媒体文件或时间线拖放到此处</translation>
        </message>
        <message>
            <source>Opening…</source>
            <translation>正在打开…</translation>
        </message>
        <message numerus="yes">
            <source>and %n more</source>
            <translation>
                <numerusform>以及另外 %n 个</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 – %2 – Export</source>
            <comment>state, file</comment>
            <translation>%1 – %2 – 导出</translation>
        </message>
        <message>
            <source>takes %1</source>
            <comment>a time</comment>
            <translation>用时%1</translation>
        </message>
        <message>
            <source>Another export in the list is to become “%1” as well. “%2”, which is there already, is replaced, too.</source>
            <translation>列表中的另一个导出也将成为“%1”。已存在的“%2”也会被替换。</translation>
        </message>
        <message>
            <source>Another export in the list is to become “%1” as well.</source>
            <translation>列表中的另一个导出也将成为“%1”。</translation>
        </message>
        <message>
            <source>Add it all the same</source>
            <translation>仍然添加</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>取消</translation>
        </message>
        <message>
            <source>“%1” is there already. It is replaced when the export is complete, and not before.</source>
            <translation>“%1”已存在。导出完成后才会替换它。</translation>
        </message>
        <message>
            <source>Replace</source>
            <translation>替换</translation>
        </message>
        <message>
            <source>A film is being exported</source>
            <translation>正在导出影片</translation>
        </message>
        <message>
            <source>Stop the export</source>
            <translation>停止导出</translation>
        </message>
        <message>
            <source>Stop the export of “%1”? Nothing of it is kept.</source>
            <translation>停止导出“%1”吗？不会保留任何内容。</translation>
        </message>
        <message>
            <source>Go on</source>
            <translation>继续</translation>
        </message>
        <message>
            <source>Close</source>
            <translation>关闭</translation>
        </message>
        <message>
            <source>An export is running, and others wait. Stop it and close? Nothing of it is kept, and the others are not made.</source>
            <translation>正在导出，另有导出在等待。要停止并关闭吗？不会保留任何内容，等待中的导出也不会执行。</translation>
        </message>
        <message>
            <source>An export is running. Stop it and close? Nothing of it is kept.</source>
            <translation>正在导出。要停止并关闭吗？不会保留任何内容。</translation>
        </message>
        <message>
            <source>Stop and close</source>
            <translation>停止并关闭</translation>
        </message>
        <message>
            <source>takes %1, at a rough guess</source>
            <comment>a time</comment>
            <translation>用时%1（粗略估计）</translation>
        </message>
        <message>
            <source>Looking what stands at the file's place…</source>
            <translation>正在查看文件位置上的内容…</translation>
        </message>
        <message>
            <source>The folder of “%1” does not answer. Check its disk or share, or save the export in another folder.</source>
            <translation>“%1”所在的文件夹没有响应。请检查其磁盘或共享，或将导出保存到其他文件夹。</translation>
        </message>
        <message>
            <source>“%1” is one of the inputs, and stays. Save the export under another name.</source>
            <translation>“%1”是输入之一，将予保留。请用其他名称保存导出。</translation>
        </message>
        <message numerus="yes">
            <source>%n export(s) were not started. Close without them?</source>
            <translation>
                <numerusform>有 %n 项导出尚未开始。不执行而关闭吗？</numerusform>
            </translation>
        </message>
        <message>
            <source>“%1” is a folder. Write the name of a file in it.</source>
            <translation>“%1”是文件夹。请写出其中的文件名。</translation>
        </message>
        <message>
            <source>Look in a folder…</source>
            <translation>在文件夹中查找…</translation>
        </message>
        <message>
            <source>Folder in which the missing media are looked for</source>
            <translation>查找缺失媒体的文件夹</translation>
        </message>
        <message>
            <source>The folder of “%1” takes no files. Save the export in another folder.</source>
            <translation>“%1”所在的文件夹不能写入。请将导出保存到其他文件夹。</translation>
        </message>
        <message>
            <source>“%1” has changed since it was opened, and is opened anew. Look at it, and export again.</source>
            <translation>“%1”在打开后已更改，现在重新打开。请查看后再次导出。</translation>
        </message>
    </context>
    <context>
        <name>Dialog::Job</name>
        <message>
            <source>Waiting</source>
            <translation>等待中</translation>
        </message>
        <message>
            <source>Starting</source>
            <translation>正在开始</translation>
        </message>
        <message>
            <source>%1 %</source>
            <translation>%1 %</translation>
        </message>
        <message>
            <source>Checking</source>
            <translation>正在检查</translation>
        </message>
        <message>
            <source>Stopping</source>
            <translation>正在停止</translation>
        </message>
        <message>
            <source>Stopped</source>
            <translation>已停止</translation>
        </message>
        <message>
            <source>Done</source>
            <translation>完成</translation>
        </message>
        <message>
            <source>Failed</source>
            <translation>失败</translation>
        </message>
        <message>
            <source>%1 × real time</source>
            <translation>%1 倍实时速度</translation>
        </message>
        <message>
            <source>%1 left</source>
            <translation>剩余%1</translation>
        </message>
        <message>
            <source>Done, with warnings</source>
            <translation>完成，有警告</translation>
        </message>
    </context>
    <context>
        <name>Dialog::JobPane</name>
        <message>
            <source>&amp;Jobs:</source>
            <translation>任务(&amp;J)：</translation>
        </message>
        <message>
            <source>Start queue</source>
            <translation>开始队列</translation>
        </message>
        <message>
            <source>Nothing is selected.</source>
            <translation>未选择任何项目。</translation>
        </message>
        <message>
            <source>It begins when the exports before it have ended.</source>
            <translation>前面的导出结束后开始。</translation>
        </message>
        <message>
            <source>Take out of the queue</source>
            <translation>移出队列</translation>
        </message>
        <message>
            <source>Picture that is being encoded</source>
            <translation>正在编码的画面</translation>
        </message>
        <message>
            <source>Progress of the export</source>
            <translation>导出进度</translation>
        </message>
        <message>
            <source>Stop…</source>
            <translation>停止…</translation>
        </message>
        <message>
            <source>Details</source>
            <translation>详细信息</translation>
        </message>
        <message>
            <source>Details of the export</source>
            <translation>导出的详细信息</translation>
        </message>
        <message>
            <source>Open</source>
            <translation>打开</translation>
        </message>
        <message>
            <source>Show in folder</source>
            <translation>在文件夹中显示</translation>
        </message>
        <message>
            <source>Try again</source>
            <translation>重试</translation>
        </message>
        <message>
            <source>Copy report</source>
            <translation>复制报告</translation>
        </message>
        <message>
            <source>Remove</source>
            <translation>移除</translation>
        </message>
        <message>
            <source>Jobs</source>
            <translation>任务</translation>
        </message>
        <message>
            <source>Outcome of the export</source>
            <translation>导出结果</translation>
        </message>
        <message>
            <source>It begins when the queue is started.</source>
            <translation>队列启动后开始。</translation>
        </message>
        <message>
            <source>Change…</source>
            <translation>更改…</translation>
        </message>
        <message>
            <source>Shows above what was ordered, to be changed and exported again</source>
            <translation>在上方显示所选的内容，以便更改后再次导出</translation>
        </message>
        <message>
            <source>Move up</source>
            <translation>上移</translation>
        </message>
        <message>
            <source>Move down</source>
            <translation>下移</translation>
        </message>
        <message>
            <source>Move &amp;up</source>
            <translation>上移(&amp;U)</translation>
        </message>
        <message>
            <source>Move &amp;down</source>
            <translation>下移(&amp;D)</translation>
        </message>
    </context>
    <context>
        <name>Dialog::JobQueue</name>
        <message>
            <source>File</source>
            <translation>文件</translation>
        </message>
        <message>
            <source>Preset</source>
            <translation>预设</translation>
        </message>
        <message>
            <source>State</source>
            <translation>状态</translation>
        </message>
    </context>
    <context>
        <name>Dialog::OutcomeText</name>
        <message>
            <source>The source is not there</source>
            <translation>来源不存在</translation>
        </message>
        <message>
            <source>The source cannot be read</source>
            <translation>无法读取来源</translation>
        </message>
        <message>
            <source>The source is damaged</source>
            <translation>来源已损坏</translation>
        </message>
        <message>
            <source>The file cannot be written</source>
            <translation>无法写入文件</translation>
        </message>
        <message>
            <source>The disk is full</source>
            <translation>磁盘已满</translation>
        </message>
        <message>
            <source>Writing the file failed</source>
            <translation>写入文件失败</translation>
        </message>
        <message>
            <source>An encoder is missing</source>
            <translation>缺少编码器</translation>
        </message>
        <message>
            <source>The encoder refused its settings</source>
            <translation>编码器拒绝了设置</translation>
        </message>
        <message>
            <source>Encoding failed</source>
            <translation>编码失败</translation>
        </message>
        <message>
            <source>Preparing the pictures or the sound failed</source>
            <translation>准备画面或声音失败</translation>
        </message>
        <message>
            <source>The file's format cannot hold this</source>
            <translation>该文件格式无法容纳此内容</translation>
        </message>
        <message>
            <source>There is not enough memory</source>
            <translation>内存不足</translation>
        </message>
        <message>
            <source>The export made no progress</source>
            <translation>导出没有进展</translation>
        </message>
        <message>
            <source>This cannot be exported</source>
            <translation>无法导出此内容</translation>
        </message>
        <message>
            <source>This is not supported</source>
            <translation>不支持此操作</translation>
        </message>
        <message>
            <source>The export failed</source>
            <translation>导出失败</translation>
        </message>
        <message>
            <source>Check that the file is where it was, and that its disk or share is connected.</source>
            <translation>请检查文件是否仍在原处，且其磁盘或共享已连接。</translation>
        </message>
        <message>
            <source>Export the part before the damage, or get the file anew.</source>
            <translation>请导出损坏处之前的部分，或重新获取文件。</translation>
        </message>
        <message>
            <source>Save the file under another name or in another folder.</source>
            <translation>请以其他名称或在其他文件夹中保存文件。</translation>
        </message>
        <message>
            <source>Make room on the disk, save to another one, or choose a lower quality.</source>
            <translation>请腾出空间、保存到其他磁盘，或选择较低质量。</translation>
        </message>
        <message>
            <source>Check the disk, or save to another one.</source>
            <translation>请检查磁盘，或保存到其他磁盘。</translation>
        </message>
        <message>
            <source>Choose another preset, or reset the custom settings.</source>
            <translation>请选择其他预设，或重置自定义设置。</translation>
        </message>
        <message>
            <source>Close other programs, or export a smaller picture.</source>
            <translation>请关闭其他程序，或导出较小的画面。</translation>
        </message>
        <message>
            <source>Check that the disks and shares of source and file answer, then try again.</source>
            <translation>请检查来源和文件所在的磁盘与共享是否有响应，然后重试。</translation>
        </message>
        <message numerus="yes">
            <source>%1, %2 × %3, %n frame(s)</source>
            <translation>
                <numerusform>%1，%2 × %3，%n 帧</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1, %2, %n channel(s)</source>
            <translation>
                <numerusform>%1，%2，%n 声道</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 long, %2</source>
            <translation>时长 %1，%2</translation>
        </message>
        <message>
            <source>Made in %1. Read back to its last byte: it is what was ordered.</source>
            <translation>用时 %1。已读回到最后一个字节：与要求一致。</translation>
        </message>
        <message>
            <source>%1 is done</source>
            <translation>%1 已完成</translation>
        </message>
        <message>
            <source>Stopped</source>
            <translation>已停止</translation>
        </message>
        <message>
            <source>Nothing was written.</source>
            <translation>没有写入任何内容。</translation>
        </message>
        <message>
            <source>Error:</source>
            <translation>错误：</translation>
        </message>
        <message>
            <source>Preset:</source>
            <translation>预设：</translation>
        </message>
        <message>
            <source>File:</source>
            <translation>文件：</translation>
        </message>
        <message>
            <source>Source</source>
            <translation>来源</translation>
        </message>
        <message>
            <source>Warning</source>
            <translation>警告</translation>
        </message>
        <message>
            <source>Note</source>
            <translation>说明</translation>
        </message>
        <message>
            <source>Made in %1. Read back to its last byte.</source>
            <translation>用时 %1。已回读到最后一个字节。</translation>
        </message>
        <message numerus="yes">
            <source>and %n more, in the details</source>
            <translation>
                <numerusform>另有 %n 条，见详细信息</numerusform>
            </translation>
        </message>
    </context>
    <context>
        <name>Dialog::OutputName</name>
        <message>
            <source>%1 (export)</source>
            <comment>a file's name</comment>
            <translation>%1（导出）</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PeoplesText</name>
        <message>
            <source>a few seconds</source>
            <translation>几秒钟</translation>
        </message>
        <message numerus="yes">
            <source>about %n second(s)</source>
            <translation>
                <numerusform>约 %n 秒</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>about %n minute(s)</source>
            <translation>
                <numerusform>约 %n 分钟</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>about %n hour(s)</source>
            <translation>
                <numerusform>约 %n 小时</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 frames/s</source>
            <translation>%1 帧/秒</translation>
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
            <translation>%1，不可用：%2</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PresetObstacle</name>
        <message>
            <source>%1 does not take %2</source>
            <translation>%1 不支持 %2</translation>
        </message>
        <message>
            <source>%1 takes no side below %2 pixels</source>
            <translation>%1 不支持小于 %2 像素的边</translation>
        </message>
        <message>
            <source>The source has no sound</source>
            <translation>来源没有声音</translation>
        </message>
        <message>
            <source>The source has no picture</source>
            <translation>来源没有画面</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PresetPane</name>
        <message>
            <source>For&amp;mat:</source>
            <translation>格式(&amp;M)：</translation>
        </message>
        <message>
            <source>&amp;Search:</source>
            <translation>搜索(&amp;S)：</translation>
        </message>
        <message>
            <source>Codec, size or name</source>
            <translation>编码、尺寸或名称</translation>
        </message>
        <message>
            <source>Presets</source>
            <translation>预设</translation>
        </message>
        <message>
            <source>No preset of this format has these words.</source>
            <translation>此格式中没有包含这些词的预设。</translation>
        </message>
        <message>
            <source>“%1” stays chosen.</source>
            <translation>“%1”仍被选中。</translation>
        </message>
    </context>
    <context>
        <name>Dialog::PresetText</name>
        <message>
            <source>%1 picture, %2 × %3</source>
            <translation>%1 画面，%2 × %3</translation>
        </message>
        <message>
            <source>%1 picture, up to %2 × %3</source>
            <translation>%1 画面，最大 %2 × %3</translation>
        </message>
        <message>
            <source>, lossless</source>
            <translation>，无损</translation>
        </message>
        <message>
            <source>, two passes</source>
            <translation>，两遍编码</translation>
        </message>
        <message>
            <source>%1 sound</source>
            <translation>%1 声音</translation>
        </message>
    </context>
    <context>
        <name>Dialog::RangeStrip</name>
        <message>
            <source>From %1 to %2</source>
            <translation>从 %1 到 %2</translation>
        </message>
    </context>
    <context>
        <name>Dialog::SettingsPane</name>
        <message>
            <source>Qualit&amp;y:</source>
            <translation>质量(&amp;Y)：</translation>
        </message>
        <message>
            <source>C&amp;ustom settings</source>
            <translation>自定义设置(&amp;U)</translation>
        </message>
        <message>
            <source>Si&amp;ze:</source>
            <translation>尺寸(&amp;Z)：</translation>
        </message>
        <message>
            <source>Frame &amp;rate:</source>
            <translation>帧率(&amp;R)：</translation>
        </message>
        <message>
            <source>Rate &amp;control:</source>
            <translation>码率控制(&amp;C)：</translation>
        </message>
        <message>
            <source>Value:</source>
            <translation>数值：</translation>
        </message>
        <message>
            <source>Quality on the codec's scale</source>
            <translation>按编码器标度的质量</translation>
        </message>
        <message>
            <source>Bitrate of the picture</source>
            <translation>画面码率</translation>
        </message>
        <message>
            <source> kbit/s</source>
            <translation> kbit/s</translation>
        </message>
        <message>
            <source>as the preset says</source>
            <translation>按预设</translation>
        </message>
        <message>
            <source>Sample ra&amp;te:</source>
            <translation>采样率(&amp;T)：</translation>
        </message>
        <message>
            <source>Sound &amp;bitrate:</source>
            <translation>声音码率(&amp;B)：</translation>
        </message>
        <message>
            <source>R&amp;eset</source>
            <translation>重置(&amp;E)</translation>
        </message>
        <message>
            <source>Range</source>
            <translation>范围</translation>
        </message>
        <message>
            <source>&amp;Whole</source>
            <translation>全部(&amp;W)</translation>
        </message>
        <message>
            <source>P&amp;art</source>
            <translation>部分(&amp;A)</translation>
        </message>
        <message>
            <source>Between mar&amp;kers</source>
            <translation>标记之间(&amp;K)</translation>
        </message>
        <message>
            <source>Range on the timeline</source>
            <translation>时间线上的范围</translation>
        </message>
        <message>
            <source>Everything is exported, from start to end.</source>
            <translation>从头到尾全部导出。</translation>
        </message>
        <message>
            <source>&amp;In point:</source>
            <translation>入点(&amp;I)：</translation>
        </message>
        <message>
            <source>Start</source>
            <translation>开头</translation>
        </message>
        <message>
            <source>Hours, minutes and seconds, as 1:02:03.5, or frames, as 120f</source>
            <translation>时、分、秒（如 1:02:03.5）或帧（如 120f）</translation>
        </message>
        <message>
            <source>Out &amp;point:</source>
            <translation>出点(&amp;P)：</translation>
        </message>
        <message>
            <source>End</source>
            <translation>结尾</translation>
        </message>
        <message>
            <source>&amp;First marker:</source>
            <translation>起始标记(&amp;F)：</translation>
        </message>
        <message>
            <source>Endin&amp;g marker:</source>
            <translation>结束标记(&amp;G)：</translation>
        </message>
        <message>
            <source>Wit&amp;h picture</source>
            <translation>包含画面(&amp;H)</translation>
        </message>
        <message>
            <source>With soun&amp;d</source>
            <translation>包含声音(&amp;D)</translation>
        </message>
        <message>
            <source>E&amp;nding:</source>
            <translation>片尾(&amp;N)：</translation>
        </message>
        <message>
            <source>Fi&amp;le:</source>
            <translation>文件(&amp;L)：</translation>
        </message>
        <message>
            <source>Sa&amp;ve as…</source>
            <translation>另存为(&amp;V)…</translation>
        </message>
        <message>
            <source>as the source</source>
            <translation>与来源相同</translation>
        </message>
        <message>
            <source>None</source>
            <translation>无</translation>
        </message>
        <message>
            <source>As the preset says</source>
            <translation>按预设</translation>
        </message>
        <message>
            <source>Constant quality</source>
            <translation>恒定质量</translation>
        </message>
        <message>
            <source>Average bitrate</source>
            <translation>平均码率</translation>
        </message>
        <message>
            <source>%1 long</source>
            <translation>时长 %1</translation>
        </message>
        <message>
            <source>Very roughly %1</source>
            <translation>粗略估计 %1</translation>
        </message>
        <message>
            <source>About %1</source>
            <translation>约 %1</translation>
        </message>
        <message>
            <source>%1 free</source>
            <translation>可用 %1</translation>
        </message>
        <message>
            <source>The folder is not there</source>
            <translation>文件夹不存在</translation>
        </message>
        <message>
            <source>This may be too much for the disk</source>
            <translation>磁盘可能放不下</translation>
        </message>
        <message>
            <source>A file of this name is there already</source>
            <translation>已有同名文件</translation>
        </message>
        <message>
            <source>Save the export as</source>
            <translation>导出另存为</translation>
        </message>
        <message>
            <source>Files of this preset (*.%1)</source>
            <translation>此预设的文件 (*.%1)</translation>
        </message>
        <message>
            <source>All files (*)</source>
            <translation>所有文件 (*)</translation>
        </message>
        <message>
            <source>Reset the custom settings</source>
            <translation>重置自定义设置</translation>
        </message>
        <message>
            <source>Channels:</source>
            <translation>声道：</translation>
        </message>
        <message>
            <source>First pass:</source>
            <translation>第一遍：</translation>
        </message>
        <message>
            <source>Mono</source>
            <translation>单声道</translation>
        </message>
        <message>
            <source>Stereo</source>
            <translation>立体声</translation>
        </message>
        <message>
            <source>Quadraphonic</source>
            <translation>四声道</translation>
        </message>
        <message>
            <source>Whole pictures</source>
            <translation>完整画面</translation>
        </message>
        <message>
            <source>Pictures of half the size</source>
            <translation>一半尺寸的画面</translation>
        </message>
        <message>
            <source>The folder does not answer</source>
            <translation>文件夹没有响应</translation>
        </message>
        <message>
            <source>This is one of the inputs</source>
            <translation>这是输入之一</translation>
        </message>
        <message>
            <source>This is a folder; write the name of a file in it</source>
            <translation>这是文件夹；请写出其中的文件名</translation>
        </message>
    </context>
    <context>
        <name>Dialog::SourceMedia</name>
        <message>
            <source>Start</source>
            <translation>开头</translation>
        </message>
        <message>
            <source>End</source>
            <translation>结尾</translation>
        </message>
        <message>
            <source>There is nothing in it to export</source>
            <translation>其中没有可导出的内容</translation>
        </message>
        <message numerus="yes">
            <source>%1 and %n more</source>
            <translation>
                <numerusform>%1 等另外 %n 个</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 × %2</source>
            <translation>%1 × %2</translation>
        </message>
        <message>
            <source>no picture</source>
            <translation>无画面</translation>
        </message>
        <message>
            <source>no sound</source>
            <translation>无声音</translation>
        </message>
        <message>
            <source>Chapter %1</source>
            <translation>第 %1 章</translation>
        </message>
    </context>
    <context>
        <name>main</name>
        <message>
            <source>Exports media files, or a timeline, from a window.</source>
            <translation>通过窗口导出媒体文件或时间线。</translation>
        </message>
        <message>
            <source>Media files, one after the other, or one timeline.</source>
            <translation>依次排列的媒体文件，或一条时间线。</translation>
        </message>
        <message>
            <source>Shows this.</source>
            <translation>显示此帮助。</translation>
        </message>
        <message>
            <source>Shows the version.</source>
            <translation>显示版本。</translation>
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
            <translation>网络</translation>
        </message>
        <message>
            <source>small-files</source>
            <translation>小文件</translation>
        </message>
        <message>
            <source>editing</source>
            <translation>剪辑</translation>
        </message>
        <message>
            <source>pictures</source>
            <translation>图像序列</translation>
        </message>
        <message>
            <source>high-dynamic-range</source>
            <translation>高动态范围</translation>
        </message>
        <message>
            <source>two-pass</source>
            <translation>两遍编码</translation>
        </message>
        <message>
            <source>audio</source>
            <translation>音频</translation>
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
            <translation>最佳</translation>
        </message>
        <message>
            <source>draft</source>
            <translation>草稿</translation>
        </message>
        <message>
            <source>mp4-h264-2160p</source>
            <translation>MP4（H.264 和 AAC），最大 2160p</translation>
        </message>
        <message>
            <source>mp4-h264-1440p</source>
            <translation>MP4（H.264 和 AAC），最大 1440p</translation>
        </message>
        <message>
            <source>mp4-h264-1080p</source>
            <translation>MP4（H.264 和 AAC），最大 1080p</translation>
        </message>
        <message>
            <source>mp4-h264-720p</source>
            <translation>MP4（H.264 和 AAC），最大 720p</translation>
        </message>
        <message>
            <source>mp4-h264-480p</source>
            <translation>MP4（H.264 和 AAC），最大 480p</translation>
        </message>
        <message>
            <source>mp4-h264-source</source>
            <translation>MP4（H.264 和 AAC），来源尺寸，高质量</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p</source>
            <translation>MP4（HEVC 和 AAC），最大 1080p</translation>
        </message>
        <message>
            <source>mp4-mpeg4-720p</source>
            <translation>MP4（MPEG-4 Visual 和 AAC），最大 720p，适用于旧播放器</translation>
        </message>
        <message>
            <source>webm-vp9-2160p</source>
            <translation>WebM（VP9 和 Opus），最大 2160p</translation>
        </message>
        <message>
            <source>webm-vp9-1080p</source>
            <translation>WebM（VP9 和 Opus），最大 1080p</translation>
        </message>
        <message>
            <source>webm-vp9-720p</source>
            <translation>WebM（VP9 和 Opus），最大 720p</translation>
        </message>
        <message>
            <source>mkv-hevc-2160p</source>
            <translation>Matroska（HEVC 和 AAC），最大 2160p</translation>
        </message>
        <message>
            <source>mkv-hevc-1080p</source>
            <translation>Matroska（HEVC 和 AAC），最大 1080p</translation>
        </message>
        <message>
            <source>mkv-ffv1-flac</source>
            <translation>Matroska（FFV1 和 FLAC），无损存档</translation>
        </message>
        <message>
            <source>mov-prores-2160p</source>
            <translation>QuickTime（ProRes 422 HQ 和 PCM），最大 2160p</translation>
        </message>
        <message>
            <source>mov-prores-1080p</source>
            <translation>QuickTime（ProRes 422 HQ 和 PCM），最大 1080p</translation>
        </message>
        <message>
            <source>mp4-hevc-2160p-hdr</source>
            <translation>MP4（HEVC 10 位 和 AAC），最大 2160p，保留高动态范围</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p-hdr</source>
            <translation>MP4（HEVC 10 位 和 AAC），最大 1080p，保留高动态范围</translation>
        </message>
        <message>
            <source>webm-vp9-2160p-hdr</source>
            <translation>WebM（VP9 10 位 和 Opus），最大 2160p，保留高动态范围</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-hdr</source>
            <translation>WebM（VP9 10 位 和 Opus），最大 1080p，保留高动态范围</translation>
        </message>
        <message>
            <source>mp4-av1-2160p-hdr</source>
            <translation>MP4（AV1 10 位 和 AAC），最大 2160p，保留高动态范围</translation>
        </message>
        <message>
            <source>mp4-av1-1080p-hdr</source>
            <translation>MP4（AV1 10 位 和 AAC），最大 1080p，保留高动态范围</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-2pass</source>
            <translation>MP4（H.264 和 AAC），最大 1080p，两遍编码</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-6mbps-2pass</source>
            <translation>MP4（H.264 和 AAC），最大 1080p，两遍编码 6 Mbit/s</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-constant-2pass</source>
            <translation>MP4（H.264 和 AAC），最大 1080p，两遍编码恒定码率</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p-2pass</source>
            <translation>MP4（HEVC 和 AAC），最大 1080p，两遍编码</translation>
        </message>
        <message>
            <source>mp4-mpeg4-720p-2pass</source>
            <translation>MP4（MPEG-4 Visual 和 AAC），最大 720p，适用于旧播放器，两遍编码</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-2pass</source>
            <translation>WebM（VP9 和 Opus），最大 1080p，两遍编码</translation>
        </message>
        <message>
            <source>m4a-aac</source>
            <translation>M4A（AAC），仅声音</translation>
        </message>
        <message>
            <source>mp3</source>
            <translation>MP3，仅声音</translation>
        </message>
        <message>
            <source>flac</source>
            <translation>FLAC，仅声音，无损</translation>
        </message>
        <message>
            <source>wav</source>
            <translation>WAV（PCM），仅声音，无损</translation>
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
            <translation>MP4（H.264 和 AAC），最大 1080p，每秒 60 帧</translation>
        </message>
        <message>
            <source>mp4-h264-vertical</source>
            <translation>MP4（H.264 和 AAC），竖屏 1080x1920</translation>
        </message>
        <message>
            <source>mp4-h264-square</source>
            <translation>MP4（H.264 和 AAC），正方形 1080x1080</translation>
        </message>
        <message>
            <source>mp4-h264-1080p-silent</source>
            <translation>MP4（H.264），最大 1080p，仅画面</translation>
        </message>
        <message>
            <source>mov-h264-2160p</source>
            <translation>QuickTime（H.264 和 AAC），最大 2160p</translation>
        </message>
        <message>
            <source>mov-h264-1080p</source>
            <translation>QuickTime（H.264 和 AAC），最大 1080p</translation>
        </message>
        <message>
            <source>mkv-h264-2160p</source>
            <translation>Matroska（H.264 和 AAC），最大 2160p</translation>
        </message>
        <message>
            <source>mkv-h264-1080p</source>
            <translation>Matroska（H.264 和 AAC），最大 1080p</translation>
        </message>
        <message>
            <source>mp4-hevc-1080p-10bit</source>
            <translation>MP4（HEVC 10 位 和 AAC），最大 1080p</translation>
        </message>
        <message>
            <source>mkv-hevc-1080p-10bit</source>
            <translation>Matroska（HEVC 10 位 和 AAC），最大 1080p</translation>
        </message>
        <message>
            <source>mp4-av1-2160p</source>
            <translation>MP4（AV1 和 Opus），最大 2160p</translation>
        </message>
        <message>
            <source>mp4-av1-1080p</source>
            <translation>MP4（AV1 和 Opus），最大 1080p</translation>
        </message>
        <message>
            <source>webm-av1-2160p</source>
            <translation>WebM（AV1 和 Opus），最大 2160p</translation>
        </message>
        <message>
            <source>webm-av1-1080p</source>
            <translation>WebM（AV1 和 Opus），最大 1080p</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-silent</source>
            <translation>WebM（VP9），最大 1080p，仅画面</translation>
        </message>
        <message>
            <source>mov-dnxhd-2160p</source>
            <translation>QuickTime（DNxHR HQ 和 PCM），最大 2160p</translation>
        </message>
        <message>
            <source>mov-dnxhd-1080p</source>
            <translation>QuickTime（DNxHR HQ 和 PCM），最大 1080p</translation>
        </message>
        <message>
            <source>mov-prores-2160p-4444</source>
            <translation>QuickTime（ProRes 4444 和 PCM），最大 2160p，保留透明度</translation>
        </message>
        <message>
            <source>mov-prores-1080p-4444</source>
            <translation>QuickTime（ProRes 4444 和 PCM），最大 1080p，保留透明度</translation>
        </message>
        <message>
            <source>mov-prores-1080p-silent</source>
            <translation>QuickTime（ProRes 422 HQ），最大 1080p，仅画面</translation>
        </message>
        <message>
            <source>opus</source>
            <translation>Opus，仅声音</translation>
        </message>
        <message>
            <source>ogg-vorbis</source>
            <translation>Ogg（Vorbis），仅声音</translation>
        </message>
        <message>
            <source>m4a-alac</source>
            <translation>M4A（ALAC），仅声音，无损</translation>
        </message>
        <message>
            <source>ac3</source>
            <translation>AC-3，5.1 声道，仅声音</translation>
        </message>
        <message>
            <source>webm-vp9-1080p-alpha</source>
            <translation>WebM（VP9 和 Opus），最大 1080p，保留透明度</translation>
        </message>
        <message>
            <source>webp-webp-720p</source>
            <translation>动画 WebP，最大 720p，仅画面，保留透明度</translation>
        </message>
        <message>
            <source>webp-webp-480p</source>
            <translation>动画 WebP，最大 480p，仅画面，保留透明度</translation>
        </message>
        <message>
            <source>gif-gif-480p</source>
            <translation>GIF，最大 480p，仅画面</translation>
        </message>
        <message>
            <source>gif-gif-240p</source>
            <translation>GIF，最大 240p，仅画面</translation>
        </message>
        <message>
            <source>png-sequence</source>
            <translation>PNG 图像序列</translation>
        </message>
        <message>
            <source>png-sequence-alpha</source>
            <translation>PNG 图像序列，保留透明度</translation>
        </message>
        <message>
            <source>jpeg-sequence</source>
            <translation>JPEG 图像序列</translation>
        </message>
        <message>
            <source>own-presets</source>
            <translation>自己的预设</translation>
        </message>
        <message>
            <source>demo</source>
            <translation>演示</translation>
        </message>
    </context>
    <context>
        <name>ExportCore::ExportRun</name>
        <message>
            <source>The preset is %1, %2</source>
            <translation>预设为 %1，%2</translation>
        </message>
        <message>
            <source>The inputs end before the out point, at %1: so does the file</source>
            <translation>输入在出点之前的 %1 处结束，文件也在此结束</translation>
        </message>
        <message>
            <source>There is no sound whose loudness could be changed</source>
            <translation>没有可以更改响度的声音</translation>
        </message>
        <message>
            <source> left out: the file has no place for it</source>
            <translation>被省略：文件中没有存放它的位置</translation>
        </message>
        <message>
            <source>The timeline's name is</source>
            <translation>时间线的名称</translation>
        </message>
        <message>
            <source>The title is</source>
            <translation>标题</translation>
        </message>
        <message>
            <source>Each of the timeline's markers is</source>
            <translation>时间线的每个标记</translation>
        </message>
        <message>
            <source>Each chapter is</source>
            <translation>每个章节</translation>
        </message>
        <message>
            <source>The timeline's time code is</source>
            <translation>时间线的时间码</translation>
        </message>
        <message>
            <source>The time code is</source>
            <translation>时间码</translation>
        </message>
        <message>
            <source>Subtitles that show nothing in the range are left out</source>
            <translation>在该范围内不显示任何内容的字幕被省略</translation>
        </message>
        <message>
            <source>None of the inputs has a picture: what is shown is black</source>
            <translation>所有输入都没有画面：显示黑色</translation>
        </message>
        <message>
            <source>None of the inputs has sound: what is heard is silence</source>
            <translation>所有输入都没有声音：播放为静音</translation>
        </message>
        <message>
            <source>The folder of the finished file could not be brought to the disk</source>
            <translation>无法将成品文件所在的文件夹写入磁盘</translation>
        </message>
    </context>
    <context>
        <name>Dialog::Sentence</name>
        <message>
            <source>%1; did you mean %2?</source>
            <translation>%1；您是指 %2 吗？</translation>
        </message>
        <message>
            <source>%1; what comes before can be exported with --out %2</source>
            <translation>%1；之前的部分可以把出点设为 %2 来导出</translation>
        </message>
        <message>
            <source>%1 (whichever export this comes from, each that runs is ended)</source>
            <translation>%1（无论来自哪个导出，所有正在运行的导出都将结束）</translation>
        </message>
        <message>
            <source>Cannot read "%1": %2</source>
            <translation>无法读取“%1”：%2</translation>
        </message>
        <message>
            <source>Cannot open "%1": %2</source>
            <translation>无法打开“%1”：%2</translation>
        </message>
        <message>
            <source>Cannot decode "%1": no decoder for %2</source>
            <translation>无法解码“%1”：没有 %2 的解码器</translation>
        </message>
        <message>
            <source>Cannot write "%1": %2</source>
            <translation>无法写入“%1”：%2</translation>
        </message>
        <message>
            <source>Cannot export "%1" beside other inputs: a timeline is exported alone</source>
            <translation>无法将“%1”与其他输入一起导出：时间线只能单独导出</translation>
        </message>
        <message>
            <source>Cannot export "%1": %2</source>
            <translation>无法导出“%1”：%2</translation>
        </message>
        <message>
            <source>Cannot make a file beside "%1": %2</source>
            <translation>无法在“%1”旁创建文件：%2</translation>
        </message>
        <message>
            <source>Cannot put the finished file at "%1": %2</source>
            <translation>无法将成品文件放到“%1”：%2</translation>
        </message>
        <message>
            <source>Cannot write "%1" to the disk: %2</source>
            <translation>无法将“%1”写入磁盘：%2</translation>
        </message>
        <message>
            <source>The unfinished file of "%1" was removed or replaced</source>
            <translation>“%1”的未完成文件已被删除或替换</translation>
        </message>
        <message>
            <source>The output has become one of the inputs meanwhile</source>
            <translation>输出在此期间成了输入之一</translation>
        </message>
        <message>
            <source>The output file "%1" cannot be written: %2</source>
            <translation>无法写入文件“%1”：%2</translation>
        </message>
        <message>
            <source>The output file "%1" cannot be created: %2</source>
            <translation>无法创建文件“%1”：%2</translation>
        </message>
        <message>
            <source>The output file "%1" cannot be closed: %2</source>
            <translation>无法关闭文件“%1”：%2</translation>
        </message>
        <message>
            <source>Writing the header of "%1": %2</source>
            <translation>写入“%1”的文件头时：%2</translation>
        </message>
        <message>
            <source>Writing to "%1": %2</source>
            <translation>写入“%1”时：%2</translation>
        </message>
        <message>
            <source>Completing "%1": %2</source>
            <translation>完成“%1”时：%2</translation>
        </message>
        <message>
            <source>The file will take %1, but beside "%2" only %3 are free</source>
            <translation>文件需要 %1，但“%2”所在位置只有 %3 可用</translation>
        </message>
        <message>
            <source>The finished file was checked and found wrong: %1</source>
            <translation>检查成品文件时发现错误：%1</translation>
        </message>
        <message>
            <source>The finished file cannot be read to its end: %1</source>
            <translation>无法将成品文件读到末尾：%1</translation>
        </message>
        <message>
            <source>The finished file cannot be read: %1</source>
            <translation>无法读取成品文件：%1</translation>
        </message>
        <message>
            <source>The export did not start within %1: %2</source>
            <translation>导出未能在 %1 内开始：%2</translation>
        </message>
        <message>
            <source>The export did not start within %1</source>
            <translation>导出未能在 %1 内开始</translation>
        </message>
        <message>
            <source>The export made no progress for %1: %2</source>
            <translation>导出在 %1 内没有进展：%2</translation>
        </message>
        <message>
            <source>The export made no progress for %1</source>
            <translation>导出在 %1 内没有进展</translation>
        </message>
        <message>
            <source>Checking the finished file made no progress for %1: %2</source>
            <translation>检查成品文件在 %1 内没有进展：%2</translation>
        </message>
        <message>
            <source>The export did not stop within %1: %2</source>
            <translation>导出未能在 %1 内停止：%2</translation>
        </message>
        <message>
            <source>Opening "%1" does not come to an end</source>
            <translation>打开“%1”迟迟没有结束</translation>
        </message>
        <message>
            <source>Reading "%1" does not come back</source>
            <translation>读取“%1”迟迟没有返回</translation>
        </message>
        <message>
            <source>Making a file beside "%1" does not come to an end</source>
            <translation>在“%1”旁创建文件迟迟没有结束</translation>
        </message>
        <message>
            <source>Encoding, or writing "%1", does not come back</source>
            <translation>编码或写入“%1”迟迟没有返回</translation>
        </message>
        <message>
            <source>The in point %1 lies outside the inputs, which last %2</source>
            <translation>入点 %1 位于时长为 %2 的输入之外</translation>
        </message>
        <message>
            <source>Nothing is left to export: the preset "%1" has %2</source>
            <translation>没有可导出的内容：预设“%1”%2</translation>
        </message>
        <message>
            <source>Cannot load the presets: %1</source>
            <translation>无法加载预设：%1</translation>
        </message>
        <message>
            <source>Cannot set %1 to "%2": %3</source>
            <translation>无法将%1设为“%2”：%3</translation>
        </message>
        <message>
            <source>Cannot set %1: %2</source>
            <translation>无法设置%1：%2</translation>
        </message>
        <message>
            <source>size</source>
            <translation>尺寸</translation>
        </message>
        <message>
            <source>frame-rate</source>
            <translation>帧率</translation>
        </message>
        <message>
            <source>bitrate</source>
            <translation>比特率</translation>
        </message>
        <message>
            <source>quality</source>
            <translation>质量</translation>
        </message>
        <message>
            <source>first-pass</source>
            <translation>第一遍</translation>
        </message>
        <message>
            <source>sample-rate</source>
            <translation>采样率</translation>
        </message>
        <message>
            <source>channels</source>
            <translation>声道</translation>
        </message>
        <message>
            <source>audio-bitrate</source>
            <translation>声音比特率</translation>
        </message>
        <message>
            <source>quality to %1</source>
            <translation>质量 %1</translation>
        </message>
        <message>
            <source>audio-bitrate to %1</source>
            <translation>声音比特率 %1</translation>
        </message>
        <message>
            <source>bitrate to %1</source>
            <translation>比特率 %1</translation>
        </message>
        <message>
            <source>a width of %1</source>
            <translation>宽度 %1</translation>
        </message>
        <message>
            <source>a height of %1</source>
            <translation>高度 %1</translation>
        </message>
        <message>
            <source>a size of %1</source>
            <translation>尺寸 %1</translation>
        </message>
        <message>
            <source>write pixels, as 1280x720</source>
            <translation>请以像素填写，如 1280x720</translation>
        </message>
        <message>
            <source>%1 is odd, and encoders need even sides</source>
            <translation>%1 是奇数，而编码器需要偶数边长</translation>
        </message>
        <message>
            <source>a picture has at least 2x2 pixels</source>
            <translation>画面至少有 2x2 像素</translation>
        </message>
        <message>
            <source>no side is longer than %1 pixels</source>
            <translation>任何一边都不能超过 %1 像素</translation>
        </message>
        <message>
            <source>the preset "%1" is for pictures up to %2</source>
            <translation>预设“%1”适用于不超过 %2 的画面</translation>
        </message>
        <message>
            <source>%1 takes no side below %2</source>
            <translation>%1 不支持小于 %2 的边长</translation>
        </message>
        <message>
            <source>%1 is too small for %2</source>
            <translation>%1 对于 %2 来说太小</translation>
        </message>
        <message>
            <source>write frames a second, as 25, 29.97 or 30000/1001, film, pal, ntsc, ntsc-film or source</source>
            <translation>请填写每秒帧数，如 25、29.97 或 30000/1001，或者 film、pal、ntsc、ntsc-film、source</translation>
        </message>
        <message>
            <source>frame rates go from 1 to %1</source>
            <translation>帧率范围为 1 到 %1</translation>
        </message>
        <message>
            <source>%1 does not take %2, only %3</source>
            <translation>%1 不支持 %2，只支持 %3</translation>
        </message>
        <message>
            <source>%1 does not take %2</source>
            <translation>%1 不支持 %2</translation>
        </message>
        <message>
            <source>%1 takes %2 to %3 bit/s</source>
            <translation>%1 支持 %2 到 %3 bit/s</translation>
        </message>
        <message>
            <source>%1 takes %2 bit/s</source>
            <translation>%1 支持 %2 bit/s</translation>
        </message>
        <message>
            <source>%1 takes whole numbers</source>
            <translation>%1 只支持整数</translation>
        </message>
        <message>
            <source>%1 takes %2 to %3</source>
            <translation>%1 支持 %2 到 %3</translation>
        </message>
        <message>
            <source>write bits a second, as 2500000, 2500k or 2.5M</source>
            <translation>请填写每秒比特数，如 2500000、2500k 或 2.5M</translation>
        </message>
        <message>
            <source>bitrates go from 1 to %1 bit/s</source>
            <translation>比特率范围为 1 到 %1 bit/s</translation>
        </message>
        <message>
            <source>the folder "%1" may not be listed: %2</source>
            <translation>不允许列出文件夹“%1”的内容：%2</translation>
        </message>
        <message>
            <source>the folder "%1": %2</source>
            <translation>文件夹“%1”：%2</translation>
        </message>
        <message>
            <source>"%1" is not a folder</source>
            <translation>“%1”不是文件夹</translation>
        </message>
        <message>
            <source>the preset "%1" writes .%2, not .%3; no preset writes that</source>
            <translation>预设“%1”写入的是 .%2，而不是 .%3；没有预设写入该格式</translation>
        </message>
        <message>
            <source>it holds neither picture nor sound that can be decoded (%1)</source>
            <translation>其中没有可以解码的画面或声音（%1）</translation>
        </message>
        <message>
            <source>it holds neither picture nor sound that can be decoded</source>
            <translation>其中没有可以解码的画面或声音</translation>
        </message>
        <message>
            <source>it takes more memory than there is</source>
            <translation>所需内存超过现有内存</translation>
        </message>
        <message>
            <source>its pictures or sound stand in another file, which it names</source>
            <translation>其画面或声音位于它所指的另一个文件中</translation>
        </message>
        <message>
            <source>it is an animated WebP file, a kind that is written and not read</source>
            <translation>它是动画 WebP 文件，这种文件只能写入，不能读取</translation>
        </message>
        <message>
            <source>&quot;%1&quot; would become larger than 4 GiB, which a WebP file cannot be: a shorter range, a lower quality or smaller pictures fit into one</source>
            <translation>“%1”将超过 4 GiB，而 WebP 文件不能这么大：缩短范围、降低质量或减小画面即可放下</translation>
        </message>
        <message>
            <source>it is a folder</source>
            <translation>它是文件夹</translation>
        </message>
        <message>
            <source>it is a pipe</source>
            <translation>它是管道</translation>
        </message>
        <message>
            <source>it is a socket</source>
            <translation>它是套接字</translation>
        </message>
        <message>
            <source>it is a device</source>
            <translation>它是设备</translation>
        </message>
        <message>
            <source>it is not a regular file</source>
            <translation>它不是普通文件</translation>
        </message>
        <message>
            <source>it is empty</source>
            <translation>它是空的</translation>
        </message>
        <message>
            <source>it is one of the inputs</source>
            <translation>它是输入之一</translation>
        </message>
        <message>
            <source>it is one of the timeline's media</source>
            <translation>它是时间线的媒体之一</translation>
        </message>
        <message>
            <source>it exists already (--overwrite replaces it)</source>
            <translation>它已存在</translation>
        </message>
        <message>
            <source>it does not name a file</source>
            <translation>它不是文件名</translation>
        </message>
        <message>
            <source>it is a link that leads nowhere</source>
            <translation>它是一个无效链接</translation>
        </message>
        <message>
            <source>No such file or directory</source>
            <translation>没有该文件或文件夹</translation>
        </message>
        <message>
            <source>Permission denied</source>
            <translation>权限不足</translation>
        </message>
        <message>
            <source>Read-only file system</source>
            <translation>只读文件系统</translation>
        </message>
        <message>
            <source>No space left on device</source>
            <translation>设备上没有剩余空间</translation>
        </message>
        <message>
            <source>Disk quota exceeded</source>
            <translation>超出磁盘配额</translation>
        </message>
        <message>
            <source>File too large</source>
            <translation>文件过大</translation>
        </message>
        <message>
            <source>File name too long</source>
            <translation>文件名过长</translation>
        </message>
        <message>
            <source>Input/output error</source>
            <translation>输入/输出错误</translation>
        </message>
        <message>
            <source>Cannot allocate memory</source>
            <translation>无法分配内存</translation>
        </message>
        <message>
            <source>Invalid data found when processing input</source>
            <translation>数据无效</translation>
        </message>
        <message>
            <source>End of file</source>
            <translation>文件末尾</translation>
        </message>
        <message>
            <source>"%1" is damaged at %2: %3</source>
            <translation>“%1”在 %2 处损坏：%3</translation>
        </message>
        <message>
            <source>"%1" cannot be put on the timeline: it has no length</source>
            <translation>“%1”无法放到时间线上：它没有时长</translation>
        </message>
        <message>
            <source>"%1": %2</source>
            <translation>“%1”：%2</translation>
        </message>
        <message>
            <source>left out: %1</source>
            <translation>省略：%1</translation>
        </message>
        <message>
            <source>%1 picture track (%2)</source>
            <translation>%1 条画面轨（%2）</translation>
        </message>
        <message>
            <source>%1 picture tracks (%2)</source>
            <translation>%1 条画面轨（%2）</translation>
        </message>
        <message>
            <source>%1 sound track (%2)</source>
            <translation>%1 条声音轨（%2）</translation>
        </message>
        <message>
            <source>%1 sound tracks (%2)</source>
            <translation>%1 条声音轨（%2）</translation>
        </message>
        <message>
            <source>%1 subtitle track (%2)</source>
            <translation>%1 条字幕轨（%2）</translation>
        </message>
        <message>
            <source>%1 subtitle tracks (%2)</source>
            <translation>%1 条字幕轨（%2）</translation>
        </message>
        <message>
            <source>%1 data track (%2)</source>
            <translation>%1 条数据轨（%2）</translation>
        </message>
        <message>
            <source>%1 data tracks (%2)</source>
            <translation>%1 条数据轨（%2）</translation>
        </message>
        <message>
            <source>%1 attached picture (%2)</source>
            <translation>%1 幅附图（%2）</translation>
        </message>
        <message>
            <source>%1 attached pictures (%2)</source>
            <translation>%1 幅附图（%2）</translation>
        </message>
        <message>
            <source>%1 attachment (%2)</source>
            <translation>%1 个附件（%2）</translation>
        </message>
        <message>
            <source>%1 attachments (%2)</source>
            <translation>%1 个附件（%2）</translation>
        </message>
        <message>
            <source>%1 chapter</source>
            <translation>%1 个章节</translation>
        </message>
        <message>
            <source>%1 chapters</source>
            <translation>%1 个章节</translation>
        </message>
        <message>
            <source>tag (%1)</source>
            <translation>标签（%1）</translation>
        </message>
        <message>
            <source>tags (%1)</source>
            <translation>标签（%1）</translation>
        </message>
        <message>
            <source>title</source>
            <translation>标题</translation>
        </message>
        <message>
            <source>tags</source>
            <translation>标签</translation>
        </message>
        <message>
            <source>Titles of chapters are cut off: the file has no place for such long ones</source>
            <translation>章节标题被截断：文件无法容纳这么长的标题</translation>
        </message>
        <message>
            <source>what is missing is black, or what lies on lower tracks where there is something, and silent</source>
            <translation>缺失部分显示为黑色或下层轨道的内容，并且静音</translation>
        </message>
        <message>
            <source>has no picture: what is shown there is black</source>
            <translation>没有画面：该处显示黑色</translation>
        </message>
        <message>
            <source>has no sound: what is heard there is silence</source>
            <translation>没有声音：该处为静音</translation>
        </message>
        <message>
            <source>roughly %1</source>
            <translation>大约 %1</translation>
        </message>
        <message>
            <source>about %1</source>
            <translation>约 %1</translation>
        </message>
        <message>
            <source>The first pass looks at whole pictures in place of halves: %1</source>
            <translation>第一遍分析的是完整画面而不是一半大小的画面：%1</translation>
        </message>
        <message>
            <source>a side of the picture has less than %1 pixels</source>
            <translation>画面有一边不足 %1 像素</translation>
        </message>
        <message>
            <source>nobody knows how long the film is</source>
            <translation>影片长度未知</translation>
        </message>
        <message>
            <source>the film is shorter than %1 seconds</source>
            <translation>影片短于 %1 秒</translation>
        </message>
        <message>
            <source>%1 with its options takes no statistics of smaller ones</source>
            <translation>%1 在当前选项下不接受较小画面的统计数据</translation>
        </message>
        <message>
            <source>%1 language is left out: the inputs' differ</source>
            <translation>%1语言被省略：各输入不同</translation>
        </message>
        <message>
            <source>%1 language, %2, is left out: the file has no place for it</source>
            <translation>%1语言 %2 被省略：文件中没有存放它的位置</translation>
        </message>
        <message>
            <source>The picture's</source>
            <translation>画面</translation>
        </message>
        <message>
            <source>The sound's</source>
            <translation>声音</translation>
        </message>
        <message>
            <source>%1; presets that do: %2</source>
            <translation>%1；可行的预设：%2</translation>
        </message>
        <message>
            <source>the preset &quot;%1&quot; writes .%2, not .%3</source>
            <translation>预设“%1”写入的是 .%2，而不是 .%3</translation>
        </message>
        <message>
            <source>%1; choose one of the preset's qualities (--quality %2)</source>
            <translation>%1；请选择该预设的一种质量：%2</translation>
        </message>
        <message>
            <source>pictures of these names exist already, &quot;%1&quot; to begin with (--overwrite replaces them)</source>
            <translation>已存在这些名称的图片，首先是“%1”</translation>
        </message>
        <message>
            <source>and %1 more (validate tells them all)</source>
            <translation>另有 %1 条</translation>
        </message>
        <message>
            <source>“%1”</source>
            <comment>a preset</comment>
            <translation>“%1”</translation>
        </message>
        <message>
            <source>make it first</source>
            <translation>请先创建它</translation>
        </message>
        <message>
            <source>name the files in it</source>
            <translation>请指定其中的文件</translation>
        </message>
        <message>
            <source>name a file in it</source>
            <translation>请指定其中的一个文件</translation>
        </message>
        <message>
            <source>write what comes out of it to a file</source>
            <translation>请把其输出写入文件</translation>
        </message>
        <message>
            <source>it is not a media file, or its beginning is damaged</source>
            <translation>不是媒体文件，或其开头已损坏</translation>
        </message>
        <message>
            <source>its index is missing: the recording was never finished, or copied in part</source>
            <translation>缺少索引：录制从未完成，或只复制了一部分</translation>
        </message>
        <message>
            <source>it is not a media file</source>
            <translation>不是媒体文件</translation>
        </message>
        <message>
            <source>A picture could not be decoded: %1</source>
            <translation>有一帧画面无法解码：%1</translation>
        </message>
        <message>
            <source>A block of sound could not be decoded: %1</source>
            <translation>有一段声音无法解码：%1</translation>
        </message>
        <message>
            <source>its picture could not be decoded: %1</source>
            <translation>其图像无法解码：%1</translation>
        </message>
        <message>
            <source>%1, clip "%2": %3 (/%4)</source>
            <translation>%1，片段“%2”：%3（/%4）</translation>
        </message>
        <message>
            <source>%1, clip: %2 (/%3)</source>
            <translation>%1，片段：%2（/%3）</translation>
        </message>
        <message>
            <source>%1, transition: %2 (/%3)</source>
            <translation>%1，转场：%2（/%3）</translation>
        </message>
        <message>
            <source>%1, stack: %2 (/%3)</source>
            <translation>%1，堆叠：%2（/%3）</translation>
        </message>
        <message>
            <source>%1, track: %2 (/%3)</source>
            <translation>%1，轨道：%2（/%3）</translation>
        </message>
        <message>
            <source>%1, clip "%2": %3</source>
            <translation>%1，片段“%2”：%3</translation>
        </message>
        <message>
            <source>%1, transition "%2": %3</source>
            <translation>%1，转场“%2”：%3</translation>
        </message>
        <message>
            <source>%1, stack "%2": %3</source>
            <translation>%1，堆叠“%2”：%3</translation>
        </message>
        <message>
            <source>%1, track "%2": %3</source>
            <translation>%1，轨道“%2”：%3</translation>
        </message>
        <message>
            <source>stack</source>
            <translation>堆叠</translation>
        </message>
        <message>
            <source>track</source>
            <translation>轨道</translation>
        </message>
        <message>
            <source>the effect "%1" is not known and is left out</source>
            <translation>效果“%1”未知，予以忽略</translation>
        </message>
        <message>
            <source>it has no pictures, and its place in a track of pictures stays empty</source>
            <translation>它没有画面，在画面轨道中的位置是空的</translation>
        </message>
        <message>
            <source>it has no sound, and its place in a sound track stays silent</source>
            <translation>它没有声音，在声音轨道中的位置是静音</translation>
        </message>
        <message>
            <source>transitions of the type "%1" are made as dissolves</source>
            <translation>类型为“%1”的转场按叠化处理</translation>
        </message>
        <message>
            <source>its media "%1" lasts %2</source>
            <translation>其媒体“%1”长 %2</translation>
        </message>
        <message>
            <source>its media "%1" cannot be opened: %2</source>
            <translation>无法打开其媒体“%1”：%2</translation>
        </message>
        <message>
            <source>its media "%1" has no pictures</source>
            <translation>其媒体“%1”没有画面</translation>
        </message>
        <message>
            <source>its media "%1" has no sound</source>
            <translation>其媒体“%1”没有声音</translation>
        </message>
        <message>
            <source>the clip goes %1 before its beginning and %2</source>
            <translation>片段超出其开头 %1，%2</translation>
        </message>
        <message>
            <source>the clip goes %1 beyond it and %2</source>
            <translation>片段超出其结尾 %1，%2</translation>
        </message>
        <message>
            <source>the transition before the clip goes %1 before its beginning and %2</source>
            <translation>片段之前的转场超出其开头 %1，%2</translation>
        </message>
        <message>
            <source>the transition before the clip goes %1 beyond it and %2</source>
            <translation>片段之前的转场超出其结尾 %1，%2</translation>
        </message>
        <message>
            <source>the transition behind the clip goes %1 before its beginning and %2</source>
            <translation>片段之后的转场超出其开头 %1，%2</translation>
        </message>
        <message>
            <source>the transition behind the clip goes %1 beyond it and %2</source>
            <translation>片段之后的转场超出其结尾 %1，%2</translation>
        </message>
        <message>
            <source>holds the first picture for %1</source>
            <translation>将第一幅画面保持 %1</translation>
        </message>
        <message>
            <source>holds the last picture for %1</source>
            <translation>将最后一幅画面保持 %1</translation>
        </message>
        <message>
            <source>shows nothing but the first picture</source>
            <translation>只显示第一幅画面</translation>
        </message>
        <message>
            <source>shows nothing but the last picture</source>
            <translation>只显示最后一幅画面</translation>
        </message>
        <message>
            <source>is silent for %1</source>
            <translation>静音 %1</translation>
        </message>
        <message>
            <source>is silent throughout</source>
            <translation>始终静音</translation>
        </message>
        <message>
            <source>stack "%1"</source>
            <translation>堆叠“%1”</translation>
        </message>
        <message>
            <source>track "%1"</source>
            <translation>轨道“%1”</translation>
        </message>
        <message>
            <source>the media "%1" %2</source>
            <translation>媒体“%1”%2</translation>
        </message>
        <message>
            <source>its media %1</source>
            <translation>其媒体%1</translation>
        </message>
        <message>
            <source>is not there</source>
            <translation>不存在</translation>
        </message>
        <message>
            <source>is no plain file</source>
            <translation>不是普通文件</translation>
        </message>
        <message>
            <source>stands on another machine</source>
            <translation>位于另一台计算机上</translation>
        </message>
        <message>
            <source>stands at a path of Windows</source>
            <translation>位于 Windows 路径</translation>
        </message>
        <message>
            <source>is not named</source>
            <translation>没有名称</translation>
        </message>
        <message>
            <source>is said to be missing</source>
            <translation>在时间线中标明缺失</translation>
        </message>
        <message>
            <source>lasts %1</source>
            <translation>长 %1</translation>
        </message>
        <message>
            <source>it lies between two frames and is not seen</source>
            <translation>它位于两帧之间，不会显示</translation>
        </message>
        <message>
            <source>%1: smaller pictures, or fewer exports at a time, take less</source>
            <translation>%1：更小的画面或同时进行更少的导出可减少占用</translation>
        </message>
        <message>
            <source>There is too little memory</source>
            <translation>内存不足</translation>
        </message>
        <message>
            <source>%1 gets too little memory for pictures of %2, each of which takes up to %3 MiB in one piece</source>
            <translation>%1 无法为 %2 的画面取得足够的内存，每帧最多需要连续 %3 MiB</translation>
        </message>
        <message>
            <source>%1 gets too little memory for pictures of %2</source>
            <translation>%1 无法为 %2 的画面取得足够的内存</translation>
        </message>
        <message>
            <source>Pixels that are not square become square, %1 as %2: viewers of such files know no others</source>
            <translation>非正方形像素将变为正方形（%1 变为 %2）：此类文件的查看器不识别其他形状</translation>
        </message>
        <message>
            <source>its sound has a gap of %1 at %2, filled with silence</source>
            <translation>其声音在 %2 处缺 %1，已用静音填补</translation>
        </message>
        <message>
            <source>its sound has more gaps, all filled with silence</source>
            <translation>其声音还有其他缺口，均已用静音填补</translation>
        </message>
        <message>
            <source>its sound changes to %1 on the way; it is converted to %2, as it begins</source>
            <translation>其声音中途变为 %1；已转换为开头的 %2</translation>
        </message>
        <message>
            <source>A damaged picture was concealed</source>
            <translation>一帧损坏的画面已被掩盖</translation>
        </message>
        <message>
            <source>Timestamps run backwards; pictures are left out</source>
            <translation>时间戳倒退；部分画面被略去</translation>
        </message>
        <message>
            <source>Reading ended early: %1</source>
            <translation>读取提前结束：%1</translation>
        </message>
        <message>
            <source>Sound is missing at the end; silence stands in for it</source>
            <translation>结尾缺少声音，以静音代替</translation>
        </message>
        <message>
            <source>Sound is missing; silence stands in for it</source>
            <translation>缺少声音，以静音代替</translation>
        </message>
        <message>
            <source>"%1" is scaled down to the size of the first pictures, %2</source>
            <translation>“%1”缩小到首个画面的尺寸 %2</translation>
        </message>
        <message>
            <source>"%1" and %2 more are scaled down to the size of the first pictures, %3</source>
            <translation>“%1”和另外 %2 个缩小到首个画面的尺寸 %3</translation>
        </message>
        <message>
            <source>--set size=WxH chooses another</source>
            <translation>可在自定义设置中选择其他尺寸</translation>
        </message>
        <message>
            <source>--set size=%1 chooses another</source>
            <translation>可在自定义设置中选择其他尺寸，如 %1</translation>
        </message>
        <message>
            <source>"%1" is shown at the rate of the first pictures, %2 instead of %3 frames a second</source>
            <translation>“%1”以首个画面的帧率显示，每秒 %2 帧而不是 %3 帧</translation>
        </message>
        <message>
            <source>"%1" and %2 more are shown at the rate of the first pictures, %3 instead of up to %4 frames a second</source>
            <translation>“%1”和另外 %2 个以首个画面的帧率显示，每秒 %3 帧而不是最高 %4 帧</translation>
        </message>
        <message>
            <source>--set frame-rate=RATE chooses another</source>
            <translation>可在自定义设置中选择其他帧率</translation>
        </message>
        <message>
            <source>--set frame-rate=%1 chooses another</source>
            <translation>可在自定义设置中选择其他帧率，如 %1</translation>
        </message>
        <message>
            <source>"%1" is mixed down to the channels of the first sound, %2</source>
            <translation>“%1”缩混为首个声音的声道 %2</translation>
        </message>
        <message>
            <source>"%1" and %2 more are mixed down to the channels of the first sound, %3</source>
            <translation>“%1”和另外 %2 个缩混为首个声音的声道 %3</translation>
        </message>
        <message>
            <source>--set channels=%1 chooses others</source>
            <translation>可在自定义设置中选择其他声道，如 %1</translation>
        </message>
        <message>
            <source>variable frame rate</source>
            <translation>可变帧率</translation>
        </message>
        <message>
            <source>shown at %1 frames a second</source>
            <translation>以每秒 %1 帧显示</translation>
        </message>
        <message>
            <source>which leaves out %1 of its %2 pictures</source>
            <translation>其 %2 帧中有 %1 帧被略去</translation>
        </message>
        <message>
            <source>which leaves out %1 of the first %2 pictures</source>
            <translation>前 %2 帧中有 %1 帧被略去</translation>
        </message>
        <message>
            <source>which leaves out pictures</source>
            <translation>部分画面被略去</translation>
        </message>
        <message>
            <source>the file does not say when most of its pictures are shown, nor how many a second; both are reckoned, and some pictures may be missing</source>
            <translation>文件未说明大多数画面何时显示，也未说明每秒多少帧；两者均为推算，可能缺少部分画面</translation>
        </message>
        <message>
            <source>pictures of %1 are encoded without their last column or line, as %2</source>
            <translation>%1 的画面去掉最后一列或一行，编码为 %2</translation>
        </message>
        <message>
            <source>pictures of %1 are encoded as %2: %3</source>
            <translation>%1 的画面编码为 %2：%3</translation>
        </message>
        <message>
            <source>%1 bits became %2</source>
            <translation>%1 位变为 %2 位</translation>
        </message>
        <message>
            <source>floating point became %1</source>
            <translation>浮点变为 %1 位</translation>
        </message>
        <message>
            <source>colour became gray</source>
            <translation>彩色变为灰度</translation>
        </message>
        <message>
            <source>colour of %1 became %2</source>
            <translation>色度 %1 变为 %2</translation>
        </message>
        <message>
            <source>the sensor's mosaic became pixels</source>
            <translation>传感器马赛克变为像素</translation>
        </message>
        <message>
            <source>transparency was left out</source>
            <translation>透明度被略去</translation>
        </message>
        <message>
            <source>over black</source>
            <translation>以黑色为底</translation>
        </message>
        <message>
            <source>its mastering display or light levels are not the ones that the export tells, which are those of all clips together</source>
            <translation>其母版显示器或亮度级别与导出所标明的不同，导出标明的是所有片段合在一起的值</translation>
        </message>
        <message>
            <source>does not fully tell its colour, taken for %1</source>
            <translation>未完整说明其颜色，按 %1 处理</translation>
        </message>
        <message>
            <source>colours converted from %1 to %2</source>
            <translation>颜色从 %1 转换为 %2</translation>
        </message>
        <message>
            <source>high dynamic range (%1, up to %2 cd/m2), tone-mapped to %3 (mobius curve)</source>
            <translation>高动态范围（%1，最高 %2 cd/m²），色调映射到 %3（Mobius 曲线）</translation>
        </message>
        <message>
            <source>standard dynamic range, placed in %1 with its white at %2</source>
            <translation>标准动态范围，置于 %1 中，白色为 %2</translation>
        </message>
        <message>
            <source>%1 left out: its pictures are shown as they are without it</source>
            <translation>略去 %1：画面按没有它时的样子显示</translation>
        </message>
        <message>
            <source>its pictures change to %1 on the way; they are fitted like those of %2 with which it begins</source>
            <translation>其画面中途变为 %1；按开头的 %2 画面的方式适配</translation>
        </message>
        <message>
            <source>interlaced (%1), deinterlaced to a picture for each field</source>
            <translation>隔行（%1），已去隔行为每场一帧</translation>
        </message>
        <message>
            <source>interlaced (%1), deinterlaced</source>
            <translation>隔行（%1），已去隔行</translation>
        </message>
        <message>
            <source>top field first</source>
            <translation>上场优先</translation>
        </message>
        <message>
            <source>bottom field first</source>
            <translation>下场优先</translation>
        </message>
        <message>
            <source>coded field by field; each field is shown as a picture of its own</source>
            <translation>逐场编码；每一场作为单独的一帧显示</translation>
        </message>
        <message>
            <source>its pictures are to be turned by %1 degrees, and are turned by %2</source>
            <translation>其画面应旋转 %1 度，实际旋转 %2 度</translation>
        </message>
        <message>
            <source>begins without a keyframe: what lies before the first picture that can be decoded, %1, is left out</source>
            <translation>开头没有关键帧：第一个可解码画面之前的 %1 被略去</translation>
        </message>
        <message>
            <source>of its %1 pictures %2 is missing, "%3" to begin with</source>
            <translation>其 %1 张图片中缺少 %2 张，即“%3”</translation>
        </message>
        <message>
            <source>of its %1 pictures %2 are missing, "%3" to begin with</source>
            <translation>其 %1 张图片中缺少 %2 张，首先是“%3”</translation>
        </message>
        <message>
            <source>pictures of it are missing, "%1" to begin with</source>
            <translation>其中缺少图片，首先是“%1”</translation>
        </message>
        <message>
            <source>the one before, or else the next one, stands in each one's place</source>
            <translation>每张以前一张代替，若没有则以后一张代替</translation>
        </message>
        <message>
            <source>black stands in each one's place</source>
            <translation>每张以黑色代替</translation>
        </message>
        <message>
            <source>not all its pictures are alike: "%1" is %2</source>
            <translation>图片不完全一致：“%1”为 %2</translation>
        </message>
        <message>
            <source>all are brought to the first one's size and pixel format, %1</source>
            <translation>全部转换为第一张的尺寸和像素格式 %1</translation>
        </message>
        <message>
            <source>the timestamps of its sound drift away from its samples; it is stretched to follow them</source>
            <translation>其声音的时间戳与采样逐渐偏离；已拉伸声音以跟随时间戳</translation>
        </message>
        <message>
            <source>many packets of its sound have one time; they follow each other</source>
            <translation>其声音的许多数据包时间相同；按顺序相接</translation>
        </message>
        <message>
            <source>the file does not say what the sound's encoder put in front: the sound may be up to %1 late</source>
            <translation>文件未说明声音编码器在前面加了什么：声音最多可能晚 %1</translation>
        </message>
        <message>
            <source>the file does not say what the sound's encoder put in front: %1 are taken for that, and left out</source>
            <translation>文件未说明声音编码器在前面加了什么：将 %1 视为该部分并略去</translation>
        </message>
        <message>
            <source>its edit list changes the speed of %1, or holds it; that is not followed, and parts may be missing or come twice</source>
            <translation>其编辑列表改变或停住%1的速度；不予遵循，部分内容可能缺失或重复</translation>
        </message>
        <message>
            <source>its edit list has a pause in %1; that is not followed, and something else may come in its place</source>
            <translation>其编辑列表在%1中有停顿；不予遵循，该处可能出现其他内容</translation>
        </message>
        <message>
            <source>its picture</source>
            <translation>画面</translation>
        </message>
        <message>
            <source>its sound</source>
            <translation>声音</translation>
        </message>
        <message>
            <source>its samples in floating point became integers of %1 bits, which cut off what lies above full scale</source>
            <translation>其浮点采样变为 %1 位整数，超出满幅的部分被削去</translation>
        </message>
        <message>
            <source>the %1 bits of each sample became %2</source>
            <translation>每个采样的 %1 位变为 %2 位</translation>
        </message>
        <message>
            <source>sound of %1 is encoded as %2 that do not say where they are heard</source>
            <translation>声音（%1）编码为未说明位置的 %2</translation>
        </message>
        <message>
            <source>sound of %1 is encoded as %2</source>
            <translation>声音（%1）编码为 %2</translation>
        </message>
        <message>
            <source>%1 that do not say where they are heard are encoded as %2</source>
            <translation>未说明位置的 %1 编码为 %2</translation>
        </message>
        <message>
            <source>where it runs backwards it is silent</source>
            <translation>倒放处为静音</translation>
        </message>
        <message>
            <source>where it stands still it is silent</source>
            <translation>静止处为静音</translation>
        </message>
        <message>
            <source>time code</source>
            <translation>时间码</translation>
        </message>
        <message>
            <source>its time code is the file's, which runs on where this medium comes again</source>
            <translation>其时间码即文件的时间码，该媒体再次出现处时间码继续走</translation>
        </message>
        <message>
            <source>%1 picture tracks</source>
            <translation>%1 条画面轨</translation>
        </message>
        <message>
            <source>%1 sound tracks</source>
            <translation>%1 条声音轨</translation>
        </message>
        <message>
            <source>%1 subtitle tracks</source>
            <translation>%1 条字幕轨</translation>
        </message>
        <message>
            <source>%1 data tracks</source>
            <translation>%1 条数据轨</translation>
        </message>
        <message>
            <source>%1 attached pictures</source>
            <translation>%1 幅附图</translation>
        </message>
        <message>
            <source>%1 language, %2, is told as %3</source>
            <translation>%1语言 %2 记为 %3</translation>
        </message>
        <message>
            <source>%1 title is left out: the inputs' differ</source>
            <translation>%1标题被省略：各输入不同</translation>
        </message>
        <message>
            <source>%1 title, "%2", is left out: the file has no place for it</source>
            <translation>%1标题“%2”被省略：文件中没有存放它的位置</translation>
        </message>
        <message>
            <source>Sound track %1's</source>
            <translation>声音轨道 %1 的</translation>
        </message>
        <message>
            <source>The subtitles'</source>
            <translation>字幕</translation>
        </message>
        <message>
            <source>The subtitles' titles are left out: the inputs' differ</source>
            <translation>字幕的标题被省略：各输入不同</translation>
        </message>
        <message>
            <source>Styles of subtitles are left out: the inputs' differ</source>
            <translation>字幕样式被省略：各输入不同</translation>
        </message>
        <message>
            <source>Styles of subtitles are left out: the file has no place for them</source>
            <translation>字幕样式被省略：文件中没有存放它们的位置</translation>
        </message>
        <message>
            <source>Colours of subtitles are left out: the file has no place for them</source>
            <translation>字幕颜色被省略：文件中没有存放它们的位置</translation>
        </message>
        <message>
            <source>Fonts of subtitles and their sizes are left out: the file has no place for them</source>
            <translation>字幕的字体和字号被省略：文件中没有存放它们的位置</translation>
        </message>
        <message>
            <source>Lines through the text of subtitles are left out: the file has no place for them</source>
            <translation>字幕的删除线被省略：文件中没有存放它们的位置</translation>
        </message>
        <message>
            <source>Places of subtitles on the picture are left out: the file has none for them</source>
            <translation>字幕在画面上的位置被省略：文件中没有存放它们的位置</translation>
        </message>
        <message>
            <source>Of more than %1 subtitles at one time the first ones are kept: the file shows one at a time</source>
            <translation>同时超过 %1 条字幕时保留前面的：文件一次只显示一条</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 cannot be read and are left out</source>
            <translation>轨道 %2 的字幕中有 %1 条无法读取，已略去</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 are longer than a subtitle can be and are left out</source>
            <translation>轨道 %2 的字幕中有 %1 条过长，已略去</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 are more than can be kept and are left out</source>
            <translation>轨道 %2 的字幕中有 %1 条超出可保留的数量，已略去</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 have a place of their own on the picture, which is left out</source>
            <translation>轨道 %2 的字幕中有 %1 条在画面上有自己的位置，该位置被略去</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 name speakers or classes, which are left out</source>
            <translation>轨道 %2 的字幕中有 %1 条标明了说话人或类别，已略去</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 have tags that WebVTT does not know, which are left out</source>
            <translation>轨道 %2 的字幕中有 %1 条含 WebVTT 不识别的标记，已略去</translation>
        </message>
        <message>
            <source>%1 of the subtitles of track %2 are no UTF-8 and were read as Windows-1252</source>
            <translation>轨道 %2 的字幕中有 %1 条不是 UTF-8，按 Windows-1252 读取</translation>
        </message>
        <message>
            <source>of its %1 chapters the first %2 are read</source>
            <translation>其 %1 个章节中只读取前 %2 个</translation>
        </message>
        <message>
            <source>the tag "%1" is left out: it holds %2 bytes</source>
            <translation>标签“%1”被省略：它有 %2 字节</translation>
        </message>
        <message>
            <source>the tag "%1" is no UTF-8 and was read as Windows-1252</source>
            <translation>标签“%1”不是 UTF-8，按 Windows-1252 读取</translation>
        </message>
        <message>
            <source>Timestamps jump by %1</source>
            <translation>时间戳跳变 %1</translation>
        </message>
        <message>
            <source>what follows was joined on %1</source>
            <translation>后面的内容已%1接上</translation>
        </message>
        <message>
            <source>without a gap</source>
            <translation>无间隙地</translation>
        </message>
        <message>
            <source>with the picture held for %1, in which its sound goes on</source>
            <translation>在画面停留 %1 而声音继续的情况下</translation>
        </message>
        <message>
            <source>Its sound lasts for %1, but its timestamps only for %2; the rest is left out</source>
            <translation>其声音长 %1，但时间戳只有 %2；其余被略去</translation>
        </message>
        <message>
            <source>The file ends at %1, and another file of its kind, which is not read, follows behind it: it is incomplete</source>
            <translation>文件在 %1 处结束，其后是另一个同类文件，不予读取：文件不完整</translation>
        </message>
        <message>
            <source>The file ends at %1, but its header claims %2: it is incomplete</source>
            <translation>文件在 %1 处结束，但文件头标明 %2：文件不完整</translation>
        </message>
        <message>
            <source>The file ends at %1, and %2 that it announces are missing: it is incomplete</source>
            <translation>文件在 %1 处结束，缺少它所声明的 %2：文件不完整</translation>
        </message>
        <message>
            <source>Behind what can be seen and heard, %1 are missing</source>
            <translation>在可看到和听到的内容之后缺少 %1</translation>
        </message>
        <message>
            <source>The file has no last page; it may have been cut off</source>
            <translation>文件没有最后一页，可能被截断</translation>
        </message>
        <message>
            <source>The file ends within a packet: it was cut off, and what it ended with is missing</source>
            <translation>文件在数据包中间结束：已被截断，缺少结尾部分</translation>
        </message>
        <message>
            <source>The %1 track begins so late that the beginning of the file does not tell of it, and is not read: it is missing</source>
            <translation>%1轨开始得太晚，文件开头没有提到它，不予读取：该轨缺失</translation>
        </message>
        <message>
            <source>nothing that can be read stands in the next %1 MiB</source>
            <translation>接下来的 %1 MiB 中没有可读取的内容</translation>
        </message>
        <message>
            <source>nothing of the %1 track was found before reading ended early: %2</source>
            <translation>在读取提前结束之前没有找到 %1 轨的内容：%2</translation>
        </message>
        <message>
            <source>nothing of the %1 track was found in the first %2 MiB; if it begins later, it is missing</source>
            <translation>前 %2 MiB 中没有找到 %1 轨的内容；如果它开始得更晚，则缺失</translation>
        </message>
        <message>
            <source>no frame of the %1 track can be decoded</source>
            <translation>%1 轨没有任何帧可以解码</translation>
        </message>
        <message>
            <source>A damaged picture was concealed: "%1"</source>
            <translation>一帧损坏的画面已被掩盖：“%1”</translation>
        </message>
        <message>
            <source>it holds no picture that can be decoded</source>
            <translation>其中没有可以解码的图像</translation>
        </message>
        <message>
            <source>it holds no picture</source>
            <translation>其中没有图像</translation>
        </message>
        <message>
            <source>Looking at "%1" does not come to an end</source>
            <translation>查看“%1”迟迟没有结束</translation>
        </message>
        <message>
            <source>Reading the finished file and moving it to "%1" does not come to an end</source>
            <translation>读取成品文件并将其移到“%1”迟迟没有结束</translation>
        </message>
        <message>
            <source>The folder of "%1" does not answer: an unfinished file may be left there, %2</source>
            <translation>“%1”所在的文件夹没有响应：那里可能留有未完成的文件 %2</translation>
        </message>
        <message>
            <source>Your own presets are left out: %1</source>
            <translation>您自己的预设被略去：%1</translation>
        </message>
        <message>
            <source>%1 of the %2 pictures that it shows are not there, the first one is "%3"</source>
            <translation>它显示的 %2 张图片中有 %1 张不存在，第一张是“%3”</translation>
        </message>
        <message>
            <source>a tone stands among pictures, where it is not heard</source>
            <translation>音调位于画面之中，听不到</translation>
        </message>
        <message>
            <source>bars stand among sound, where they are not seen</source>
            <translation>彩条位于声音之中，看不到</translation>
        </message>
        <message>
            <source>pictures stand among sound</source>
            <translation>画面位于声音之中</translation>
        </message>
        <message>
            <source>%1 more clips lie between two frames and are not seen</source>
            <translation>另有 %1 个片段位于两帧之间，不会显示</translation>
        </message>
        <message>
            <source>the track does not say what it holds; it is taken for pictures</source>
            <translation>轨道未说明其内容；按画面处理</translation>
        </message>
        <message>
            <source>tracks of the kind "%1" are left out</source>
            <translation>类型为“%1”的轨道被略去</translation>
        </message>
        <message>
            <source>a transition stands outside of a track and is left out</source>
            <translation>有一个转场位于轨道之外，已略去</translation>
        </message>
        <message>
            <source>"%1" is not known</source>
            <translation>“%1”未知</translation>
        </message>
        <message>
            <source>there is a gap in its place</source>
            <translation>其位置为空隙</translation>
        </message>
        <message>
            <source>it has no length either, and what follows begins at its place</source>
            <translation>它也没有时长，后面的内容从其位置开始</translation>
        </message>
        <message>
            <source>it lasts no time and is left out</source>
            <translation>它没有时长，已略去</translation>
        </message>
        <message>
            <source>it follows another transition and is left out</source>
            <translation>它紧接另一个转场，已略去</translation>
        </message>
        <message>
            <source>there is no time for it, and it is left out</source>
            <translation>没有容纳它的时间，已略去</translation>
        </message>
        <message>
            <source>it is longer than the clips beside it and is shortened to them</source>
            <translation>它比两旁的片段长，已缩短至片段长度</translation>
        </message>
        <message>
            <source>the stack "%1" before it has too little beyond the cut: for %2 ms its picture stands still, and nothing is heard of it</source>
            <translation>它之前的堆叠“%1”在剪切点之后内容不足：有 %2 毫秒画面静止，也没有声音</translation>
        </message>
        <message>
            <source>the stack "%1" before it has too little beyond the cut: for %2 ms nothing is heard of it</source>
            <translation>它之前的堆叠“%1”在剪切点之后内容不足：有 %2 毫秒没有声音</translation>
        </message>
        <message>
            <source>the stack "%1" behind it has too little before the cut: for %2 ms its picture stands still, and nothing is heard of it</source>
            <translation>它之后的堆叠“%1”在剪切点之前内容不足：有 %2 毫秒画面静止，也没有声音</translation>
        </message>
        <message>
            <source>the stack "%1" behind it has too little before the cut: for %2 ms nothing is heard of it</source>
            <translation>它之后的堆叠“%1”在剪切点之前内容不足：有 %2 毫秒没有声音</translation>
        </message>
        <message>
            <source>the global start time lies outside of 0 to 24 hours, and its time code wraps around</source>
            <translation>全局起始时间不在 0 到 24 小时之内，其时间码会回绕</translation>
        </message>
        <message>
            <source>frames that are missing are an error, not "%1"</source>
            <translation>缺少的帧视为错误，而不是“%1”</translation>
        </message>
        <message>
            <source>the tone's frequency is no number from 1 to 20000; it sounds at 1000 Hz</source>
            <translation>音调的频率不是 1 到 20000 之间的数；按 1000 Hz 发声</translation>
        </message>
        <message>
            <source>the colour is not told as red, green and blue from 0 to 1 or as "#rrggbb"; it is black</source>
            <translation>颜色未以 0 到 1 的红、绿、蓝或“#rrggbb”表示；按黑色处理</translation>
        </message>
        <message>
            <source>it is no marker and is left out</source>
            <translation>它不是标记，已略去</translation>
        </message>
        <message>
            <source>the marker is left out</source>
            <translation>标记被略去</translation>
        </message>
        <message>
            <source>a NUL stands in the name, which ends there</source>
            <translation>名称中有 NUL，名称在该处结束</translation>
        </message>
        <message>
            <source>%1 more findings are not listed</source>
            <translation>另有 %1 条未列出</translation>
        </message>
        <message>
            <source>"%1" stands in it more than once; the last one counts</source>
            <translation>“%1”出现多次；以最后一个为准</translation>
        </message>
        <message>
            <source>it goes beyond what there is of its contents and %1</source>
            <translation>超出其内容范围，%1</translation>
        </message>
        <message>
            <source>holds the first picture throughout</source>
            <translation>始终保持第一幅画面</translation>
        </message>
        <message>
            <source>holds the last picture throughout</source>
            <translation>始终保持最后一幅画面</translation>
        </message>
        <message>
            <source>its media "%1" is not among its references</source>
            <translation>其媒体“%1”不在其引用之中</translation>
        </message>
        <message>
            <source>is of the unknown schema "%1"</source>
            <translation>的模式“%1”未知</translation>
        </message>
        <message>
            <source>is the unknown generator "%1"</source>
            <translation>是未知的生成器“%1”</translation>
        </message>
        <message>
            <source>is a sequence of pictures without a proper numbering, rate or name</source>
            <translation>是编号、帧率或名称不正确的图片序列</translation>
        </message>
        <message>
            <source>its entry "%1" %2</source>
            <translation>其条目“%1”%2</translation>
        </message>
        <message>
            <source>is in it twice</source>
            <translation>重复出现</translation>
        </message>
        <message>
            <source>cannot be unpacked: %1</source>
            <translation>无法解包：%1</translation>
        </message>
        <message>
            <source>has a name that leads out of the archive</source>
            <translation>的名称指向压缩包之外</translation>
        </message>
        <message>
            <source>%1 is newer than what can be read, %2</source>
            <translation>%1 比可读取的 %2 更新</translation>
        </message>
        <message>
            <source>has no name</source>
            <translation>没有名称</translation>
        </message>
        <message>
            <source>has a name with a zero byte</source>
            <translation>的名称中有零字节</translation>
        </message>
        <message>
            <source>is a URL of the scheme "%1"; only files are opened</source>
            <translation>是“%1”类型的 URL；只能打开文件</translation>
        </message>
        <message>
            <source>cannot be looked at: %1</source>
            <translation>无法查看：%1</translation>
        </message>
        <message>
            <source>is no folder</source>
            <translation>不是文件夹</translation>
        </message>
        <message>
            <source>%1, marker "%2": %3</source>
            <translation>%1，标记“%2”：%3</translation>
        </message>
        <message>
            <source>stack "%1": %2</source>
            <translation>堆叠“%1”：%2</translation>
        </message>
        <message>
            <source>track "%1": %2</source>
            <translation>轨道“%1”：%2</translation>
        </message>
        <message>
            <source>clip "%1": %2</source>
            <translation>片段“%1”：%2</translation>
        </message>
        <message>
            <source>The mix goes %1 dB beyond full scale, %2</source>
            <translation>混音超出满幅 %1 dB，%2</translation>
        </message>
        <message>
            <source>and its peaks are turned down</source>
            <translation>其峰值已被压低</translation>
        </message>
        <message>
            <source>which samples in integers cannot hold</source>
            <translation>整数采样无法容纳</translation>
        </message>
        <message>
            <source>stacks and tracks stand too deep in each other</source>
            <translation>堆叠与轨道嵌套过深</translation>
        </message>
        <message>
            <source>a stack has no list of children</source>
            <translation>堆叠没有子项列表</translation>
        </message>
        <message>
            <source>a track has no list of children</source>
            <translation>轨道没有子项列表</translation>
        </message>
        <message>
            <source>the track lasts longer than a year</source>
            <translation>轨道超过一年</translation>
        </message>
        <message>
            <source>nothing tells how long it lasts</source>
            <translation>没有说明其时长</translation>
        </message>
        <message>
            <source>a transition reaches a negative time to one side</source>
            <translation>转场在一侧的时间为负</translation>
        </message>
        <message>
            <source>%1 timelines in it are called "%2"; their numbers choose one: %3</source>
            <translation>其中有 %1 条时间线名为“%2”；可按编号选择：%3</translation>
        </message>
        <message>
            <source>there is no timeline in it</source>
            <translation>其中没有时间线</translation>
        </message>
        <message>
            <source>there is no timeline "%1" in it; there are %2</source>
            <translation>其中没有时间线“%1”；有 %2</translation>
        </message>
        <message>
            <source>there are several timelines in it, and none was chosen: %1</source>
            <translation>其中有多条时间线，但未选择：%1</translation>
        </message>
        <message>
            <source>the timeline has no tracks</source>
            <translation>时间线没有轨道</translation>
        </message>
        <message>
            <source>the folder that it stands in cannot be told: %1</source>
            <translation>无法确定其所在的文件夹：%1</translation>
        </message>
        <message>
            <source>there is nothing on the timeline</source>
            <translation>时间线上没有内容</translation>
        </message>
        <message>
            <source>there is no content.otio in it</source>
            <translation>其中没有 content.otio</translation>
        </message>
        <message>
            <source>the speed is no number from -100 to 100</source>
            <translation>速度不是 -100 到 100 之间的数</translation>
        </message>
        <message>
            <source>it is no plain file</source>
            <translation>它不是普通文件</translation>
        </message>
        <message>
            <source>it is not there</source>
            <translation>它不存在</translation>
        </message>
        <message>
            <source>it is longer than a timeline should be (1 GiB)</source>
            <translation>它超过时间线应有的大小（1 GiB）</translation>
        </message>
        <message>
            <source>it became shorter while it was read</source>
            <translation>读取过程中它变短了</translation>
        </message>
        <message>
            <source>half of a surrogate pair stands in it, which is no letter</source>
            <translation>其中有半个代理对，不构成字符</translation>
        </message>
        <message>
            <source>it nests deeper than a timeline should (%1)</source>
            <translation>嵌套深度超过时间线应有的程度（%1）</translation>
        </message>
        <message>
            <source>it is no JSON: %1 (line %2, column %3)</source>
            <translation>它不是 JSON：%1（第 %2 行，第 %3 列）</translation>
        </message>
        <message>
            <source>the %1 of a time is no number</source>
            <translation>时间的%1不是数</translation>
        </message>
        <message>
            <source>the %1 of a time is not finite</source>
            <translation>时间的%1不是有限数</translation>
        </message>
        <message>
            <source>a time is missing</source>
            <translation>缺少时间</translation>
        </message>
        <message>
            <source>a time lies more than a year away</source>
            <translation>时间相距超过一年</translation>
        </message>
        <message>
            <source>a time's rate is not above 0 or beyond all measure</source>
            <translation>时间的速率不大于 0，或过大</translation>
        </message>
        <message>
            <source>a range of time is missing</source>
            <translation>缺少时间范围</translation>
        </message>
        <message>
            <source>a duration is negative</source>
            <translation>时长为负</translation>
        </message>
        <message>
            <source>is encrypted</source>
            <translation>已加密</translation>
        </message>
        <message>
            <source>claims to hold %1 in %2 bytes, which media never do</source>
            <translation>声称在 %2 字节中容纳 %1，媒体不会如此</translation>
        </message>
        <message>
            <source>takes %1, and where it would be unpacked %2 are free</source>
            <translation>需要 %1，而解包位置可用 %2</translation>
        </message>
        <message>
            <source>makes %1 of an archive of %2 bytes, which media never do</source>
            <translation>使 %2 字节的压缩包变为 %1，媒体不会如此</translation>
        </message>
        <message>
            <source>is not unpacked: that was stopped</source>
            <translation>未解包：已停止</translation>
        </message>
        <message>
            <source>is damaged: it does not hold what it claims to</source>
            <translation>已损坏：内容与其声明不符</translation>
        </message>
        <message>
            <source>is damaged: %1</source>
            <translation>已损坏：%1</translation>
        </message>
        <message>
            <source>cannot be unpacked</source>
            <translation>无法解包</translation>
        </message>
        <message>
            <source>it is no zip archive, or a damaged one: %1</source>
            <translation>它不是 zip 压缩包，或已损坏：%1</translation>
        </message>
        <message>
            <source>it has more entries than a timeline should (%1)</source>
            <translation>其条目多于时间线应有的数量（%1）</translation>
        </message>
        <message>
            <source>its entry %1 is damaged</source>
            <translation>其条目 %1 已损坏</translation>
        </message>
        <message>
            <source>it is an archive of version %1, and version 1 is known</source>
            <translation>它是版本 %1 的压缩包，已知的是版本 1</translation>
        </message>
        <message>
            <source>there is no folder to unpack it to: %1</source>
            <translation>没有可供解包的文件夹：%1</translation>
        </message>
        <message>
            <source>mono</source>
            <translation>单声道</translation>
        </message>
        <message>
            <source>stereo</source>
            <translation>立体声</translation>
        </message>
        <message>
            <source>%1 channels</source>
            <translation>%1 个声道</translation>
        </message>
        <message>
            <source>%1 channels (%2)</source>
            <translation>%1 个声道（%2）</translation>
        </message>
        <message>
            <source>%1 (track %2)</source>
            <translation>%1（轨道 %2）</translation>
        </message>
        <message>
            <source>%1 attachments</source>
            <translation>%1 个附件</translation>
        </message>
        <message>
            <source>%1 tags</source>
            <translation>%1 个标签</translation>
        </message>
        <message>
            <source>%1 bytes</source>
            <translation>%1 字节</translation>
        </message>
        <message>
            <source>picture</source>
            <translation>画面</translation>
        </message>
        <message>
            <source>sound</source>
            <translation>声音</translation>
        </message>
        <message>
            <source>%1 at its start and %2</source>
            <translation>开头处%1，%2</translation>
        </message>
        <message>
            <source>%1 at its start</source>
            <translation>开头处%1</translation>
        </message>
        <message>
            <source>%1 at its end</source>
            <translation>结尾处%1</translation>
        </message>
        <message>
            <source>%1, nor below the folder for media</source>
            <translation>%1，媒体文件夹下也没有</translation>
        </message>
        <message>
            <source>stack: %1</source>
            <translation>堆叠：%1</translation>
        </message>
        <message>
            <source>track: %1</source>
            <translation>轨道：%1</translation>
        </message>
        <message>
            <source>%1 (/%2)</source>
            <translation>%1（/%2）</translation>
        </message>
        <message>
            <source>value</source>
            <translation>数值</translation>
        </message>
        <message>
            <source>rate</source>
            <translation>速率</translation>
        </message>
    </context>
</TS>
