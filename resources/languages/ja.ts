<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>words</name>
    <message>
        <location filename="../../resources/About.ui"/>
        <source>Loop Manager</source>
        <translation>Loop Manager</translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdater.ui"/>
        <location filename="../../resources/FirmwareUpdaterProgress.ui"/>
        <location filename="../../src/updates/windows/firmware_notice.cpp"/>
        <source>Firmware Update</source>
        <translation>ファームウェアの更新</translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdater.ui"/>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Install</source>
        <translation>インストール</translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdater.ui"/>
        <source>Install the firmware</source>
        <translation>ファームウェアをインストール</translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdater.ui"/>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <source>Release notes</source>
        <translation>リリースノート</translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdaterProgress.ui"/>
        <source>Firmware installation</source>
        <translation>ファームウェアのインストール</translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdaterProgress.ui"/>
        <source>Installing firmware. Keep the pedal plugged in.</source>
        <translation>インストール中です。ペダルを外さないでください。</translation>
    </message>
    <message>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Later</source>
        <translation>後で</translation>
    </message>
    <message>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <source>Software Update</source>
        <translation>ソフトウェアの更新</translation>
    </message>
    <message>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up.cpp"/>
        <source>Choose</source>
        <translation>選択</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up.cpp"/>
        <source>Choose a folder for the backup</source>
        <translation>バックアップ先のフォルダーを選択</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up.cpp"/>
        <source>Choose a folder with backups</source>
        <translation>バックアップのあるフォルダーを選択</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_compare.cpp"/>
        <location filename="../../src/app/transfer_events.cpp"/>
        <source>Comparing loop %1…</source>
        <translation>Loop %1 を比較中…</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <location filename="../../src/app/handed_files.cpp"/>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <location filename="../../src/operations/told.cpp"/>
        <location filename="../../src/slots/slot_description.cpp"/>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <location filename="../../src/ui/panels/backup_tape.cpp"/>
        <source>%1, %2</source>
        <translation>%1、%2</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n damaged</source>
        <comment>%n damaged</comment>
        <translation>
            <numerusform>破損 %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n erased</source>
        <comment>%n erased</comment>
        <translation>
            <numerusform>消去 %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n new</source>
        <comment>%n new</comment>
        <translation>
            <numerusform>新規 %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n new or changed, %1</source>
        <comment>%n new or changed, %1</comment>
        <translation>
            <numerusform>新規・変更 %n、%1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n replaced</source>
        <comment>%n replaced</comment>
        <translation>
            <numerusform>置き換え %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n same</source>
        <comment>%n same</comment>
        <translation>
            <numerusform>同じ %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n same as then</source>
        <comment>%n same as then</comment>
        <translation>
            <numerusform>当時と同じ %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>%n same length</source>
        <comment>%n same length</comment>
        <translation>
            <numerusform>同じ長さ %n</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>Slot %1, %2, %3, %4</source>
        <translation>スロット %1、%2、%3、%4</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>Slot %1, no loop</source>
        <translation>スロット %1、ループなし</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>changed</source>
        <translation>変更あり</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>d MMM yyyy, HH:mm</source>
        <translation>yyyy年M月d日 HH:mm</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>damaged</source>
        <translation>破損</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>damaged in the backup</source>
        <translation>バックアップ内で破損</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>erased</source>
        <translation>消去</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>in the backup</source>
        <translation>バックアップにあり</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>new</source>
        <translation>新規</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>only in the backup</source>
        <translation>バックアップのみ</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>replaces %1</source>
        <translation>%1 を置換</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>replaces a loop of %1</source>
        <translation>%1のループを置き換え</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>same</source>
        <translation>同じ</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>same length</source>
        <translation>同じ長さ</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>saved again</source>
        <translation>再保存</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>saved again, as it is damaged in the backup</source>
        <translation>バックアップ内で破損しているため再保存</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>stays</source>
        <translation>そのまま</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_rows.cpp"/>
        <source>the same length, not compared</source>
        <translation>同じ長さ、未比較</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <location filename="../../src/app/main_window_words.cpp"/>
        <location filename="../../src/app/teller.cpp"/>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>No pedal connected</source>
        <translation>ペダルが接続されていません</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>Reading the folder</source>
        <translation>フォルダーを読み込み中</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>The pedal already holds everything in this backup</source>
        <translation>このバックアップの内容はすべてペダルにあります</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>The pedal has no loops</source>
        <translation>ペダルにループがありません</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>There is no backup in this folder</source>
        <translation>このフォルダーにバックアップはありません</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>There is not enough room on the pedal for this backup alongside its other loops</source>
        <translation>ほかのループを残したままでは、このバックアップを復元する空きがペダルにありません</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>This backup cannot be restored: %1</source>
        <translation>このバックアップは復元できません：%1</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>no backup yet</source>
        <translation>バックアップなし</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>reading…</source>
        <translation>読み込み中…</translation>
    </message>
    <message>
        <location filename="../../src/app/backing_up_show.cpp"/>
        <source>since %1</source>
        <translation>前回：%1</translation>
    </message>
    <message>
        <location filename="../../src/app/backup_flow.cpp"/>
        <source>7306 Back Up</source>
        <translation>7306 バックアップ</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/backup_flow.cpp"/>
        <source>Backing up %n loops from the 7306...</source>
        <comment>Backing up %n loop from the 7306...</comment>
        <translation>
            <numerusform>7306 のループ %n 個をバックアップ中…</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/backup_flow.cpp"/>
        <location filename="../../src/app/import_flow.cpp"/>
        <location filename="../../src/app/save_report.cpp"/>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Try again</source>
        <translation>再試行</translation>
    </message>
    <message>
        <location filename="../../src/app/backup_flow.cpp"/>
        <source>the last loop</source>
        <translation>最後のループ</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>%1 are staged</source>
        <comment>%1 is staged</comment>
        <translation>
            <numerusform>%1 は書き込み予定です</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Each loop is read before it is erased or replaced.</source>
        <translation>どのループも、消去や置き換えの前に読み込まれます。</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>Keep Copies is still off</source>
        <translation>「コピーを保管」はオフのままです</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>Keep Copies is still on</source>
        <translation>「コピーを保管」はオンのままです</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>Other files are staged as well. Export writes all of them.</source>
        <translation>ほかにも書き込み予定のファイルがあります。エクスポートするとすべて書き込まれます。</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>copied %1 %2</source>
        <translation>%1 %2 にコピー</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>copied today %1</source>
        <translation>今日 %1 にコピー</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>copied yesterday %1</source>
        <translation>昨日 %1 にコピー</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>d MMM</source>
        <translation>M月d日</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>d MMM yyyy</source>
        <translation>yyyy年M月d日</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>ddd</source>
        <translation>dddd</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>erased %1 %2</source>
        <translation>%1 %2 に消去</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>erased today %1</source>
        <translation>今日 %1 に消去</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>erased yesterday %1</source>
        <translation>昨日 %1 に消去</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>its folder could not be renamed</source>
        <translation>フォルダーの名前を変更できませんでした</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>replaced %1 %2</source>
        <translation>%1 %2 に置き換え</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>replaced today %1</source>
        <translation>今日 %1 に置き換え</translation>
    </message>
    <message>
        <location filename="../../src/app/bring_back_flow.cpp"/>
        <source>replaced yesterday %1</source>
        <translation>昨日 %1 に置き換え</translation>
    </message>
    <message>
        <location filename="../../src/app/bus/bus_desktop_shell.cpp"/>
        <location filename="../../src/app/show_folder.cpp"/>
        <location filename="../../src/ui/status/status_line.cpp"/>
        <source>Show</source>
        <translation>表示</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/carry_in.cpp"/>
        <source>%n files go to %1</source>
        <comment>%n file goes to %1</comment>
        <translation>
            <numerusform>ファイル %n 個を %1 に書き込み予定</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/carry_in.cpp"/>
        <source>%n files will wait for a pedal</source>
        <comment>%n file will wait for a pedal</comment>
        <translation>
            <numerusform>ファイル %n 個はペダルの接続を待ちます</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/carry_in.cpp"/>
        <source>Drop between the rows to use all %n files</source>
        <comment>Drop between the rows to use the file</comment>
        <translation>
            <numerusform>行の間にドロップすると、ファイル %n 個をすべて使用します</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/carry_in.cpp"/>
        <source>Drop between the rows to use both files</source>
        <translation>行の間にドロップすると、両方のファイルを使用します</translation>
    </message>
    <message>
        <location filename="../../src/app/carry_in.cpp"/>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>not readable</source>
        <translation>読み込めません</translation>
    </message>
    <message>
        <location filename="../../src/app/carry_in.cpp"/>
        <source>too long</source>
        <translation>長すぎます</translation>
    </message>
    <message>
        <location filename="../../src/app/carry_out.cpp"/>
        <source>%1 was not dragged out</source>
        <translation>%1 をドラッグで取り出せませんでした</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/carry_out.cpp"/>
        <source>%n loops were not dragged out</source>
        <comment>%n loop was not dragged out</comment>
        <translation>
            <numerusform>ループ %n 個をドラッグで取り出せませんでした</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/carry_out.cpp"/>
        <location filename="../../src/operations/told.cpp"/>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>a loop</source>
        <translation>ループの 1 つ</translation>
    </message>
    <message>
        <location filename="../../src/app/copy_sound.cpp"/>
        <location filename="../../src/app/listening_engine.cpp"/>
        <source>Playing %1</source>
        <translation>%1 を再生中</translation>
    </message>
    <message>
        <location filename="../../src/app/copy_sound.cpp"/>
        <location filename="../../src/app/listening_engine.cpp"/>
        <source>Playing %1, %2</source>
        <translation>%1 を再生中、%2</translation>
    </message>
    <message>
        <location filename="../../src/app/copy_sound.cpp"/>
        <source>The copy of %1 could not be played</source>
        <translation>%1 のコピーを再生できませんでした</translation>
    </message>
    <message>
        <location filename="../../src/app/copy_sound.cpp"/>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>its file could not be read</source>
        <translation>ファイルを読み込めませんでした</translation>
    </message>
    <message>
        <location filename="../../src/app/erase_flow.cpp"/>
        <source>Erase without a copy</source>
        <translation>コピーせずに消去</translation>
    </message>
    <message>
        <location filename="../../src/app/erase_flow.cpp"/>
        <source>Erased loop audio cannot be restored. Would you like to continue?</source>
        <translation>消去したループの音声は復元できません。
続けますか？</translation>
    </message>
    <message>
        <location filename="../../src/app/erase_flow.cpp"/>
        <source>Erasing %1…</source>
        <translation>%1 を消去中…</translation>
    </message>
    <message>
        <location filename="../../src/app/erase_flow.cpp"/>
        <source>Erasing loops…</source>
        <translation>ループを消去中…</translation>
    </message>
    <message>
        <location filename="../../src/app/export_flow.cpp"/>
        <source>Overwriting loop slots will erase audio on the 7306. Erased audio cannot be restored. Would you like to continue?</source>
        <translation>ループのスロットを上書きすると、7306 の音声が消去されます。消去した音声は復元できません。
続けますか？</translation>
    </message>
    <message>
        <location filename="../../src/app/export_flow.cpp"/>
        <source>Replace without a copy</source>
        <translation>コピーせずに置き換え</translation>
    </message>
    <message>
        <location filename="../../src/app/export_flow.cpp"/>
        <location filename="../../src/app/transfer_events.cpp"/>
        <source>Writing loop %1…</source>
        <translation>Loop %1 を書き込み中…</translation>
    </message>
    <message>
        <location filename="../../src/app/export_flow.cpp"/>
        <source>what is staged</source>
        <translation>書き込み予定の内容</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>"%1" cannot be used</source>
        <translation>「%1」は使用できません</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>"%1" was sent</source>
        <translation>「%1」を送信しました</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>%n bytes, SHA-256 %1.</source>
        <comment>%n byte, SHA-256 %1.</comment>
        <translation>
            <numerusform>%n バイト、SHA-256 %1。</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>It is not the maker's newest firmware, %1.</source>
        <translation>メーカーの最新ファームウェア %1 ではありません。</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>It is the maker's newest firmware.</source>
        <translation>メーカーの最新ファームウェアです。</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>It ran %1 before.</source>
        <translation>以前のバージョンは %1 でした。</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>It will be downloaded again.</source>
        <translation>もう一度ダウンロードします。</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>The firmware in the cache cannot be used</source>
        <translation>キャッシュのファームウェアは使用できません</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>The pedal has not come back from its restart: unplug it and plug it in again</source>
        <translation>ペダルが再起動から戻っていません。取り外して、もう一度接続してください</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>Whether it is the maker's newest firmware is not known.</source>
        <translation>メーカーの最新ファームウェアかどうかは不明です。</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>it cannot be read, or it is empty</source>
        <translation>読み込めないか、空です</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_flow.cpp"/>
        <source>unknown</source>
        <translation>不明</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/operations/reasons.cpp"/>
        <location filename="../../src/operations/sentences.cpp"/>
        <location filename="../../src/operations/told.cpp"/>
        <location filename="../../src/operations/told_flash.cpp"/>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <location filename="../../src/ui/status/announcements.cpp"/>
        <location filename="../../src/ui/status/status_line.cpp"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1.</source>
        <translation>%1。</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/ui/panels/backup_tape.cpp"/>
        <location filename="../../src/ui/status/announcements.cpp"/>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>Downloading firmware %1, %2 %</source>
        <translation>ファームウェア %1 をダウンロード中、%2%</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>It runs only its loader, as after an installation that did not finish.</source>
        <translation>インストールが途中で終わったときのように、ローダーだけが動作しています。</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>It runs only its loader, as after an installation that did not finish. Until it has firmware, its loops cannot be listed.</source>
        <translation>インストールが途中で終わったときのように、ローダーだけが動作しています。ファームウェアを入れるまで、ループの一覧は表示できません。</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Not Now</source>
        <translation>今はしない</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/app/set_up.cpp"/>
        <location filename="../../src/ui/alert.cpp"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>Repair</source>
        <translation>修復</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>The maker's firmware has not been downloaded yet.</source>
        <translation>メーカーのファームウェアはまだダウンロードされていません。</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <location filename="../../src/app/teller.cpp"/>
        <source>The pedal is waiting for firmware</source>
        <translation>ペダルはファームウェアを待っています</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>This pedal is waiting for firmware.</source>
        <translation>このペダルはファームウェアを待っています。</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>Try Again</source>
        <translation>再試行</translation>
    </message>
    <message>
        <location filename="../../src/app/firmware_notices.cpp"/>
        <source>Would you like to install %1 now?</source>
        <translation>%1 を今すぐインストールしますか？</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>"%1"</source>
        <translation>「%1」</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>"%1" (%2)</source>
        <translation>「%1」（%2）</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>"%1" is %2</source>
        <translation>「%1」は%2</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>Left out: %1.</source>
        <translation>除外：%1。</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>No file was used</source>
        <translation>ファイルは使用されませんでした</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/handed_files.cpp"/>
        <source>Only %n of %1 files were used</source>
        <comment>Only %n of %1 files was used</comment>
        <translation>
            <numerusform>%1 個中 %n 個のファイルだけを使用しました</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>no other row is free</source>
        <translation>ほかに空いている行がありません</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>no row is free</source>
        <translation>空いている行がありません</translation>
    </message>
    <message>
        <location filename="../../src/app/handed_files.cpp"/>
        <source>the others do not fit or cannot be read</source>
        <translation>ほかのファイルは収まらないか、読み込めません</translation>
    </message>
    <message>
        <location filename="../../src/app/import_flow.cpp"/>
        <source>Choose a folder for %1</source>
        <translation>%1 の保存先フォルダーを選択</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/import_flow.cpp"/>
        <source>Choose a folder for %n loops</source>
        <comment>Choose a folder for %n loop</comment>
        <translation>
            <numerusform>ループ %n 個の保存先フォルダーを選択</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/import_flow.cpp"/>
        <location filename="../../src/app/loop_reader.cpp"/>
        <location filename="../../src/app/transfer_events.cpp"/>
        <source>Reading loop %1…</source>
        <translation>Loop %1 を読み込み中…</translation>
    </message>
    <message>
        <location filename="../../src/app/import_flow.cpp"/>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <location filename="../../src/app/keep_flow.cpp"/>
        <source>Keeping a copy of %1…</source>
        <translation>%1 のコピーを保管中…</translation>
    </message>
    <message>
        <location filename="../../src/app/keep_flow.cpp"/>
        <source>Keeping a copy of %1… %2 %</source>
        <translation>%1 のコピーを保管中… %2%</translation>
    </message>
    <message>
        <location filename="../../src/app/keep_flow.cpp"/>
        <source>Keeping copies, %1 percent</source>
        <translation>コピーを保管中、%1 パーセント</translation>
    </message>
    <message>
        <location filename="../../src/app/keep_flow.cpp"/>
        <location filename="../../src/app/listening_engine.cpp"/>
        <location filename="../../src/app/loop_reader.cpp"/>
        <location filename="../../src/app/main_window.cpp"/>
        <location filename="../../src/app/verify_flow.cpp"/>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <location filename="../../src/app/launch.cpp"/>
        <source>Device is busy. Try again later.</source>
        <translation>デバイスは使用中です。後でもう一度お試しください。</translation>
    </message>
    <message>
        <location filename="../../src/app/listening.h"/>
        <location filename="../../src/listening/sound/qt_audio_output.cpp"/>
        <source>No sound device was found.</source>
        <translation>サウンドデバイスが見つかりませんでした。</translation>
    </message>
    <message>
        <location filename="../../src/app/listening_events.cpp"/>
        <source>Waiting for the read of loop %1 to stop</source>
        <translation>Loop %1 の読み込みの停止を待っています</translation>
    </message>
    <message>
        <location filename="../../src/app/listening_events.cpp"/>
        <source>Waiting for the read of loop %1 to stop…</source>
        <translation>Loop %1 の読み込みの停止を待っています…</translation>
    </message>
    <message>
        <location filename="../../src/app/loop_reader.cpp"/>
        <source>%1 could not be read</source>
        <translation>%1 を読み込めませんでした</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Connect the pedal to this computer
by USB and switch it on.
Its loops will appear here.</source>
        <translation>USB でこのコンピューターに
接続し、電源を入れてください。
ここにループが表示されます。</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Deselect all loops</source>
        <translation>すべてのループの選択を解除</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Direction</source>
        <translation>方向</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <location filename="../../src/ui/lower_button.cpp"/>
        <source>Erase</source>
        <translation>消去</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <location filename="../../src/ui/lower_button.cpp"/>
        <source>Export</source>
        <translation>エクスポート</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Export tab, computer to pedal</source>
        <translation>エクスポートタブ、PC からペダルへ</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <location filename="../../src/ui/lower_button.cpp"/>
        <source>Import</source>
        <translation>インポート</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Import tab, pedal to computer</source>
        <translation>インポートタブ、ペダルから PC へ</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Its free space shows here.</source>
        <translation>ここに空き容量が表示されます。</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Menu</source>
        <translation>メニュー</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Plug in your 7306</source>
        <translation>7306 を接続してください</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Select all loops</source>
        <translation>すべてのループを選択</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Slots marked like this will
replace loops on the pedal.</source>
        <translation>この印のスロットでは、
ペダルのループが置き換わります。</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>Space in use</source>
        <translation>使用中の容量</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>computer to pedal</source>
        <translation>PC からペダルへ</translation>
    </message>
    <message>
        <location filename="../../src/app/main_window_words.cpp"/>
        <source>pedal to computer</source>
        <translation>ペダルから PC へ</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <location filename="../../src/ui/strip.cpp"/>
        <source>%1 %</source>
        <translation>%1%</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;About 7306 Loop Manager</source>
        <translation>7306 Loop Manager について(&amp;A)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Bring Back…</source>
        <translation>元に戻す(&amp;B)…</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Choose File…</source>
        <translation>ファイルを選択(&amp;C)…</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Doctor…</source>
        <translation>診断(&amp;D)…</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Export</source>
        <translation>エクスポート(&amp;E)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Export…</source>
        <translation>エクスポート(&amp;E)…</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Fit to Screen</source>
        <translation>画面に合わせる(&amp;F)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Import</source>
        <translation>インポート(&amp;I)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Import…</source>
        <translation>インポート(&amp;I)…</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Keep Copies</source>
        <translation>コピーを保管(&amp;K)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Loop</source>
        <translation>ループ(&amp;L)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Paste Files</source>
        <translation>ファイルを貼り付け(&amp;P)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Play</source>
        <translation>再生(&amp;P)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Recent Results</source>
        <translation>最近の結果(&amp;R)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Rename</source>
        <translation>名前を変更(&amp;R)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Restore…</source>
        <translation>復元(&amp;R)…</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Save Report…</source>
        <translation>レポートを保存(&amp;S)…</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;User Guide</source>
        <translation>ユーザーガイド(&amp;U)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;Verify After Export</source>
        <translation>エクスポート後に検証(&amp;V)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>Back &amp;Up…</source>
        <translation>バックアップ(&amp;U)…</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>Re&amp;move</source>
        <translation>外す(&amp;M)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>Select &amp;All</source>
        <translation>すべて選択(&amp;A)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_bar.cpp"/>
        <source>Select &amp;None</source>
        <translation>選択を解除(&amp;N)</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_control.cpp"/>
        <source>Please connect your device and try again.</source>
        <translation>デバイスを接続して、もう一度お試しください。</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_control.cpp"/>
        <source>Version %1 is the newest 7306 firmware available.</source>
        <translation>バージョン %1 は 7306 の最新ファームウェアです。</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_control.cpp"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>You're up to date!</source>
        <translation>最新の状態です</translation>
    </message>
    <message>
        <location filename="../../src/app/menu_control.cpp"/>
        <source>Your 7306 device is not connected</source>
        <translation>7306 が接続されていません</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 and %2</source>
        <translation>%1、%2</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%1 cannot be read</source>
        <translation>%1 は読み込めません</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%1 is too long</source>
        <translation>%1 は長すぎます</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%1 is too long: %2, and %3 is left</source>
        <translation>%1 は長すぎます（%2、残り %3）</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%1 is too long: %2, and %3 is left beside the others</source>
        <translation>%1 は長すぎます（%2、ほかのファイルを除いた残り %3）</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%1. %2</source>
        <translation>%1。%2</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%n files fit</source>
        <comment>%n file fits</comment>
        <translation>
            <numerusform>ファイル %n 個が収まります</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>%n of %1 files fit</source>
        <comment>%n of %1 files fits</comment>
        <translation>
            <numerusform>ファイル %1 個中 %n 個が収まります</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>Left out: %1</source>
        <translation>除外：%1</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>No other row is free</source>
        <translation>ほかに空いている行がありません</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>No row is free</source>
        <translation>空いている行がありません</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>None of the %n files fits</source>
        <comment>The file does not fit</comment>
        <translation>
            <numerusform>ファイル %n 個はどれも収まりません</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>too long: %1, and %2 is left</source>
        <translation>長すぎます（%1、残り %2）</translation>
    </message>
    <message>
        <location filename="../../src/app/model/carry_plan.cpp"/>
        <source>too long: %1, and %2 is left beside the others</source>
        <translation>長すぎます（%1、ほかのファイルを除いた残り %2）</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/presenter.cpp"/>
        <source>%1 of %n minutes in use</source>
        <comment>%1 of %n minute in use</comment>
        <translation>
            <numerusform>%n 分中 %1を使用中</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/program/simulation_menu.cpp"/>
        <source>%1 – simulated pedal</source>
        <translation>%1 – 仮想ペダル</translation>
    </message>
    <message>
        <location filename="../../src/app/program/simulation_menu.cpp"/>
        <source>&amp;Pedal Plugged In</source>
        <translation>ペダルを接続(&amp;P)</translation>
    </message>
    <message>
        <location filename="../../src/app/program/simulation_menu.cpp"/>
        <source>&amp;Simulation</source>
        <translation>仮想ペダル(&amp;S)</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>7306 Restore</source>
        <translation>7306 復元</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Both are copied first; Edit &gt; Bring Back returns them.</source>
        <translation>先にどちらのコピーも保管します。「編集」&gt;「元に戻す」で戻せます。</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <location filename="../../src/app/save_report.cpp"/>
        <location filename="../../src/app/set_up.cpp"/>
        <location filename="../../src/ui/alert.cpp"/>
        <location filename="../../src/ui/lower_button.cpp"/>
        <location filename="../../src/ui/panels/progress.cpp"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Comparing the 7306 with the backup...</source>
        <translation>7306 とバックアップを比較中…</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Comparing with the backup…</source>
        <translation>バックアップと比較中…</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Erased audio cannot be restored.</source>
        <translation>消去した音声は復元できません。</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>It is copied first; Edit &gt; Bring Back returns it.</source>
        <translation>先にコピーを保管します。「編集」&gt;「元に戻す」で戻せます。</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Keep Copies</source>
        <translation>コピーを保管</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Nothing was restored</source>
        <translation>何も復元されませんでした</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Restore</source>
        <translation>復元</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Restore without a copy</source>
        <translation>コピーせずに復元</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Restoring %n loops to the 7306...</source>
        <comment>Restoring %n loop to the 7306...</comment>
        <translation>
            <numerusform>7306 にループ %n 個を復元中…</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>Restoring…</source>
        <translation>復元中…</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>They are copied first; Edit &gt; Bring Back returns them.</source>
        <translation>先にコピーを保管します。「編集」&gt;「元に戻す」で戻せます。</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>To be erased: %1.</source>
        <translation>消去されるループ：%1。</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>To be replaced: %1.</source>
        <translation>置き換えられるループ：%1。</translation>
    </message>
    <message>
        <location filename="../../src/app/restore_flow.cpp"/>
        <source>the backup</source>
        <translation>バックアップ</translation>
    </message>
    <message>
        <location filename="../../src/app/said.h"/>
        <source>%1 staged for %2, %3</source>
        <translation>%1 を %2 に書き込み予定、%3</translation>
    </message>
    <message>
        <location filename="../../src/app/said.h"/>
        <source>%1 staged for %2, %3, replaces a loop of %4</source>
        <translation>%1 を %2 に書き込み予定、%3、%4のループを置き換え</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/said.h"/>
        <source>7306 connected, %n loops, %1 free</source>
        <comment>7306 connected, %n loop, %1 free</comment>
        <translation>
            <numerusform>7306 が接続されました。ループ %n 個、空き %1</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/said.h"/>
        <source>7306 disconnected</source>
        <translation>7306 が取り外されました</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>A text file that you can read and send: the versions of the program and of this computer's system, what keeps the pedal from being used, the last results and the log. There is no audio in it, and neither your name nor that of your home folder.</source>
        <translation>内容を確認してから送れるテキストファイルです。プログラムとこのコンピューターのシステムのバージョン、ペダルの使用を妨げているもの、最近の結果、ログが含まれます。音声、ユーザー名、ホームフォルダーの名前は含まれません。</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>Include file names</source>
        <translation>ファイル名を含める</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>Save Report</source>
        <translation>レポートを保存</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>Save a report for troubleshooting?</source>
        <translation>トラブルシューティング用のレポートを保存しますか？</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>Save…</source>
        <translation>保存…</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>Saving the report…</source>
        <translation>レポートを保存中…</translation>
    </message>
    <message>
        <location filename="../../src/app/save_report.cpp"/>
        <source>Text files</source>
        <translation>テキストファイル</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1: %2.</source>
        <translation>%1：%2。</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Loops can be imported now</source>
        <translation>ループをインポートできるようになりました</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Run in a terminal: %1</source>
        <translation>ターミナルで実行：%1</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <location filename="../../src/device/finding.h"/>
        <location filename="../../src/operations/reasons.cpp"/>
        <location filename="../../src/operations/sentences.cpp"/>
        <location filename="../../src/operations/told.cpp"/>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Run: %1</source>
        <translation>実行：%1</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Set Up</source>
        <translation>セットアップ</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Set up</source>
        <translation>セットアップ</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>Setting up…</source>
        <translation>セットアップ中…</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>The system rule is installed</source>
        <translation>システムのルールをインストールしました</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>The system rule is installed, but something else is in the way</source>
        <translation>システムのルールをインストールしましたが、ほかにも原因があります</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>The system rule was not installed</source>
        <translation>システムのルールはインストールされませんでした</translation>
    </message>
    <message>
        <location filename="../../src/app/set_up.cpp"/>
        <source>This sets it up, with your password: %1</source>
        <translation>パスワードの入力後、次のコマンドでセットアップします：%1</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>"%1" goes to the row of %2</source>
        <translation>「%1」は %2 の行に入ります</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>"%1" was left out</source>
        <translation>「%1」は除外されました</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/staging.cpp"/>
        <source>"Stage again" puts them on the same rows.</source>
        <comment>"Stage again" puts it on the same row.</comment>
        <translation>
            <numerusform>「予定に戻す」で同じ行に戻せます。</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>%1 has another file.</source>
        <translation>%1 には別のファイルがあります。</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>Audio files</source>
        <translation>オーディオファイル</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>Choose an audio file for %1</source>
        <translation>%1 のオーディオファイルを選択</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>Each row takes one file.</source>
        <translation>1 行に入るファイルは 1 つです。</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/staging.cpp"/>
        <source>Only the first of %n files was used</source>
        <comment>Only the first of %n file was used</comment>
        <translation>
            <numerusform>ファイル %n 個のうち最初の 1 つだけを使用しました</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>Plugged in: staged files were removed, as the pedal's slots may differ</source>
        <translation>接続されました：スロットが異なる可能性があるため、書き込み予定のファイルを外しました</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>Stage again</source>
        <translation>予定に戻す</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>There is no free row for "%1"</source>
        <translation>「%1」を入れる空いた行がありません</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>Use it anyway</source>
        <translation>そのまま使用</translation>
    </message>
    <message>
        <location filename="../../src/app/staging.cpp"/>
        <source>it is too long: %1, and %2 is left</source>
        <translation>長すぎます（%1、残り %2）</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/teller.cpp"/>
        <source>%1 were not saved</source>
        <comment>%1 was not saved</comment>
        <translation>
            <numerusform>%1 は保存されませんでした</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/teller.cpp"/>
        <source>%n files are waiting</source>
        <comment>%n file is waiting</comment>
        <translation>
            <numerusform>ファイル %n 個が待機中</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/teller.cpp"/>
        <location filename="../../src/loops/facts.h"/>
        <source>%n loops</source>
        <comment>%n loop</comment>
        <translation>
            <numerusform>ループ %n 個</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>Back Up…</source>
        <translation>バックアップ…</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>Cancel, or unplug it.</source>
        <translation>キャンセルするか、ペダルを取り外してください。</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>Stop it, or unplug the pedal.</source>
        <translation>停止するか、ペダルを取り外してください。</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>The pedal has stopped answering</source>
        <translation>ペダルが応答しなくなりました</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>The pedal has stopped answering: cancel, or unplug it</source>
        <translation>ペダルが応答しなくなりました：キャンセルするか、取り外してください</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>The pedal has stopped answering: stop, or unplug it</source>
        <translation>ペダルが応答しなくなりました：停止するか、取り外してください</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>The pedal has stopped answering: unplug it</source>
        <translation>ペダルが応答しなくなりました：取り外してください</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>Unplug it.</source>
        <translation>ペダルを取り外してください。</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>What is erased now is gone.</source>
        <translation>これから消去するものは元に戻せません。</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>firmware %1</source>
        <translation>ファーム %1</translation>
    </message>
    <message>
        <location filename="../../src/app/teller.cpp"/>
        <source>nothing has been backed up yet</source>
        <translation>まだ何もバックアップされていません</translation>
    </message>
    <message>
        <location filename="../../src/app/time_left.cpp"/>
        <source>about %1 min left</source>
        <translation>残り約 %1 分</translation>
    </message>
    <message>
        <location filename="../../src/app/time_left.cpp"/>
        <source>about %1 s left</source>
        <translation>残り約 %1 秒</translation>
    </message>
    <message>
        <location filename="../../src/app/transfer_panel.cpp"/>
        <source>7306 Export</source>
        <translation>7306 エクスポート</translation>
    </message>
    <message>
        <location filename="../../src/app/transfer_panel.cpp"/>
        <source>7306 Import</source>
        <translation>7306 インポート</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/transfer_panel.cpp"/>
        <source>Exporting %n loops to the 7306...</source>
        <comment>Exporting %n loop to the 7306...</comment>
        <translation>
            <numerusform>7306 にループ %n 個をエクスポート中…</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/app/transfer_panel.cpp"/>
        <source>Importing %n loops from the 7306...</source>
        <comment>Importing %n loop from the 7306...</comment>
        <translation>
            <numerusform>7306 からループ %n 個をインポート中…</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/app/user_guide.cpp"/>
        <source>Open %1 in a browser.</source>
        <translation>ブラウザーで %1 を開いてください。</translation>
    </message>
    <message>
        <location filename="../../src/app/user_guide.cpp"/>
        <source>The program looks for share/kzq7306/guide/guide.html below the folder it is installed in. In the source it is doc/guide.md.</source>
        <translation>プログラムは、インストール先フォルダーの下の share/kzq7306/guide/guide.html を探します。ソースでは doc/guide.md にあります。</translation>
    </message>
    <message>
        <location filename="../../src/app/user_guide.cpp"/>
        <source>The user guide could not be opened</source>
        <translation>ユーザーガイドを開けませんでした</translation>
    </message>
    <message>
        <location filename="../../src/app/user_guide.cpp"/>
        <source>The user guide is not installed</source>
        <translation>ユーザーガイドがインストールされていません</translation>
    </message>
    <message>
        <location filename="../../src/app/verify_flow.cpp"/>
        <source>Verifying loop %1…</source>
        <translation>Loop %1 を検証中…</translation>
    </message>
    <message>
        <location filename="../../src/audio/aiff_facts.cpp"/>
        <source>%1-bit little-endian AIFF-C</source>
        <translation>%1 ビット リトルエンディアンの AIFF-C</translation>
    </message>
    <message>
        <location filename="../../src/audio/convert.cpp"/>
        <source>the name has no extension</source>
        <translation>名前に拡張子がありません</translation>
    </message>
    <message>
        <location filename="../../src/audio/convert.cpp"/>
        <source>the path has no folder</source>
        <translation>パスにフォルダーがありません</translation>
    </message>
    <message>
        <location filename="../../src/audio/converted_audio.cpp"/>
        <source>the converted file cannot be read</source>
        <translation>変換したファイルを読み込めません</translation>
    </message>
    <message>
        <location filename="../../src/audio/source_facts.cpp"/>
        <source>Flash video</source>
        <translation>Flash ビデオ</translation>
    </message>
    <message>
        <location filename="../../src/audio/source_facts.cpp"/>
        <source>big-endian WAV (RIFX)</source>
        <translation>ビッグエンディアンの WAV（RIFX）</translation>
    </message>
    <message>
        <location filename="../../src/device/finding.h"/>
        <source>%1 is using the pedal</source>
        <translation>%1 がペダルを使用中です</translation>
    </message>
    <message>
        <location filename="../../src/device/finding.h"/>
        <source>A simulated pedal is used instead of a real one.</source>
        <translation>実際のペダルの代わりに仮想ペダルを使用しています。</translation>
    </message>
    <message>
        <location filename="../../src/device/finding.h"/>
        <source>Another program is using the pedal</source>
        <translation>別のプログラムがペダルを使用中です</translation>
    </message>
    <message>
        <location filename="../../src/device/finding.h"/>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Run "kzq7306ctl doctor" to see how to fix it.</source>
        <translation>解決方法を見るには「kzq7306ctl doctor」を実行してください。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>A pedal is on the USB bus, but %1 does not exist, as in a container without access to /dev/bus/usb.</source>
        <translation>ペダルは USB バスに接続されていますが、%1 がありません。/dev/bus/usb にアクセスできないコンテナーなどで起こります。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>A pedal is on the USB bus.</source>
        <translation>ペダルは USB バスに接続されています。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Another program is using the pedal. Find out which one and close it.</source>
        <translation>別のプログラムがペダルを使用中です。そのプログラムを探して終了してください。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops can be imported.</source>
        <translation>ループをインポートできます。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops cannot be imported: %1 could not be opened in time (%2), as the udev rule for it is not installed.</source>
        <translation>ループをインポートできません：udev ルールがインストールされていないため、%1 を時間内に開けませんでした（%2）。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops cannot be imported: %1 could not be opened in time (%2), as you are logged in over the network and its udev rule is for the user at the computer.</source>
        <translation>ループをインポートできません：ネットワーク経由でログインしており、udev ルールはコンピューターの前にいるユーザー用のため、%1 を時間内に開けませんでした（%2）。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops cannot be imported: %1 could not be opened in time (%2). The computer may have been too busy: try again. If that does not help, apply the rules again.</source>
        <translation>ループをインポートできません：%1 を時間内に開けませんでした（%2）。コンピューターが混み合っていた可能性があります。もう一度お試しください。変わらない場合は、ルールを適用し直してください。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops cannot be imported: the kernel passes on the request for them only through its usbtmc driver, and the udev rules for that are not installed.</source>
        <translation>ループをインポートできません：カーネルはインポートの要求を usbtmc ドライバー経由でしか渡しませんが、そのための udev ルールがインストールされていません。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops cannot be imported: the kernel's usbtmc driver is not loaded. Either the udev rules were not yet installed when the pedal was plugged in, or this kernel comes without the driver, as those made for virtual machines do.</source>
        <translation>ループをインポートできません：カーネルの usbtmc ドライバーが読み込まれていません。ペダルの接続時に udev ルールがまだインストールされていなかったか、仮想マシン用カーネルのように、このカーネルにドライバーが含まれていません。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>Loops cannot be imported: the udev rules for it were not yet installed when the pedal was plugged in.</source>
        <translation>ループをインポートできません：ペダルの接続時に、必要な udev ルールがまだインストールされていませんでした。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>No other program is using the pedal.</source>
        <translation>ほかにペダルを使用中のプログラムはありません。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>No pedal is on the USB bus. Check the cable and the pedal's power, then look again.</source>
        <translation>USB バスにペダルが見つかりません。ケーブルとペダルの電源を確認して、もう一度調べてください。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>The kernel driver %1 is holding the pedal.</source>
        <translation>カーネルドライバー %1 がペダルを占有しています。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>The pedal is in use by %1. Close that program, or wait until it has finished.</source>
        <translation>ペダルは %1 が使用中です。そのプログラムを終了するか、処理が終わるまでお待ちください。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>You do not have permission to use the pedal: its udev rule is not installed.</source>
        <translation>ペダルを使用する権限がありません：udev ルールがインストールされていません。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>You do not have permission to use the pedal: its udev rule was not yet installed when the pedal was plugged in, or you are not logged in at this computer.</source>
        <translation>ペダルを使用する権限がありません：ペダルの接続時に udev ルールがまだインストールされていなかったか、このコンピューターに直接ログインしていません。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>You do not have permission to use the pedal: you are logged in over the network, and its udev rule is for the user at the computer. The group plugdev can be allowed to use it.</source>
        <translation>ペダルを使用する権限がありません：ネットワーク経由でログインしており、udev ルールはコンピューターの前にいるユーザー用です。グループ plugdev に使用を許可することもできます。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>You have permission to use the pedal.</source>
        <translation>ペダルを使用する権限があります。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>the file of the kernel's usbtmc driver</source>
        <translation>カーネルの usbtmc ドライバーのファイル</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>udev is not running, as in a container, so a pedal that is plugged in later is not noticed. Plug it in before starting the program, or run the program outside the container.</source>
        <translation>コンテナー内などのため udev が動作しておらず、後から接続したペダルは認識されません。プログラムの起動前に接続するか、コンテナーの外で起動してください。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/diagnosis.cpp"/>
        <source>udev is running.</source>
        <translation>udev は動作しています。</translation>
    </message>
    <message>
        <location filename="../../src/device/libusb/lock_holder.h"/>
        <source>%1 (process %2)</source>
        <translation>%1（プロセス %2）</translation>
    </message>
    <message>
        <location filename="../../src/listening/sound/qt_audio_output.cpp"/>
        <source>The sound device does not play 44,100 Hz.</source>
        <translation>サウンドデバイスが 44,100 Hz の再生に対応していません。</translation>
    </message>
    <message>
        <location filename="../../src/listening/sound/qt_audio_output.cpp"/>
        <source>The sound device stopped working.</source>
        <translation>サウンドデバイスが停止しました。</translation>
    </message>
    <message>
        <location filename="../../src/loops/capacity.cpp"/>
        <source>Space remaining: %1 min, %2 sec</source>
        <translation>空き容量：%1 分 %2 秒</translation>
    </message>
    <message>
        <location filename="../../src/loops/capacity.cpp"/>
        <source>This file is too large for the available space on your 7306.</source>
        <translation>このファイルは 7306 の空き容量に収まりません。</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/loops/spoken_length.h"/>
        <source>%n minutes %1</source>
        <comment>%n minute %1</comment>
        <translation>
            <numerusform>%n 分 %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/loops/spoken_length.h"/>
        <source>%n seconds</source>
        <comment>%n second</comment>
        <translation>
            <numerusform>%n 秒</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/keep.cpp"/>
        <source>%1 was not copied, %2</source>
        <translation>%1 はコピーされませんでした。%2</translation>
    </message>
    <message>
        <location filename="../../src/operations/keep.cpp"/>
        <source>Stop it and try again.</source>
        <translation>ペダルを停止して、もう一度お試しください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/keep.cpp"/>
        <source>no copy was kept, %1</source>
        <translation>コピーは保管されませんでした。%1</translation>
    </message>
    <message>
        <location filename="../../src/operations/keep.cpp"/>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>stopped</source>
        <translation>停止されました</translation>
    </message>
    <message>
        <location filename="../../src/operations/keep.cpp"/>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal was in use while its loops were copied</source>
        <translation>ループのコピー中にペダルが使用されていました</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 does not match what was written.</source>
        <translation>%1 は書き込んだ内容と一致しません。</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was being written; the slot may now be empty.</source>
        <translation>%1 を書き込んでいる途中でした。スロットは空になっている可能性があります。</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was not compared: %2</source>
        <translation>%1 は比較されませんでした：%2</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was not erased: %2</source>
        <translation>%1 は消去されませんでした：%2</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was not saved: %2</source>
        <translation>%1 は保存されませんでした：%2</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was not written: %2</source>
        <translation>%1 は書き込まれませんでした：%2</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was not written: it was sent, but the pedal does not hold all of it.</source>
        <translation>%1 は書き込まれませんでした：送信しましたが、ペダルに全体がありません。</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was sent but could not be read back: %2</source>
        <translation>%1 を送信しましたが、読み戻せませんでした：%2</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>%1 was sent; what the pedal holds of it was not checked.</source>
        <translation>%1 を送信しましたが、ペダルの内容は確認されていません。</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Some of the loops may have been erased.</source>
        <translation>一部のループが消去された可能性があります。</translation>
    </message>
    <message>
        <location filename="../../src/operations/loop_sentences.cpp"/>
        <source>The slot may now be empty.</source>
        <translation>スロットは空になっている可能性があります。</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 changed meanwhile</source>
        <translation>%1がその間に変更されました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 changed while it was being read</source>
        <translation>%1 が読み込み中に変更されました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 is missing or has been changed</source>
        <translation>%1 がないか、変更されています</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 is still on the pedal</source>
        <translation>%1 はまだペダルにあります</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 was changed on the pedal meanwhile</source>
        <translation>%1 がその間にペダルで変更されました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 was erased on the pedal meanwhile</source>
        <translation>%1 がその間にペダルで消去されました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>%1 was recorded on the pedal meanwhile</source>
        <translation>%1 がその間にペダルで録音されました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>Check the rows and start again.</source>
        <translation>行を確認して、やり直してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>Erase loops, or choose shorter files.</source>
        <translation>ループを消去するか、短いファイルを選択してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>The pedal is in use by another program. Close that program, then try again.</source>
        <translation>ペダルは別のプログラムが使用中です。そのプログラムを終了して、もう一度お試しください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>Unplug the pedal and plug it in again.</source>
        <translation>ペダルを取り外して、もう一度接続してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>Unplug the pedal, plug it in again and start again.</source>
        <translation>ペダルを取り外し、もう一度接続して、やり直してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>a kernel driver is holding the pedal</source>
        <translation>カーネルドライバーがペダルを占有しています</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>another program is using the pedal</source>
        <translation>別のプログラムがペダルを使用中です</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>cancelled</source>
        <translation>キャンセルされました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>it changed while it was being read</source>
        <translation>読み込み中に変更されました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>it is still on the pedal</source>
        <translation>まだペダルにあります</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>no space left on the disk</source>
        <translation>ディスクに空きがありません</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the file cannot be written</source>
        <translation>ファイルに書き込めません</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the folder cannot be written to</source>
        <translation>フォルダーに書き込めません</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the folder is not there any more</source>
        <translation>フォルダーがなくなっています</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal did not report its loops</source>
        <translation>ペダルからループの情報が届きませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal does not hold all of %1</source>
        <translation>ペダルに %1 の全体がありません</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal does not hold all of it</source>
        <translation>ペダルに全体がありません</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal has too little room</source>
        <translation>ペダルの空きが足りません</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal is busy</source>
        <translation>ペダルは使用中です</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal is waiting for firmware</source>
        <translation>ペダルはファームウェアを待っています</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal refused %1</source>
        <translation>ペダルが %1 を拒否しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal refused it</source>
        <translation>ペダルが拒否しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal refused to send %1</source>
        <translation>ペダルが %1 の送信を拒否しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal refused to send it</source>
        <translation>ペダルが送信を拒否しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal reports %1 as longer than 24 minutes</source>
        <translation>ペダルの示す %1 の長さが、上限の 24 分を超えています</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal reports it as longer than 24 minutes</source>
        <translation>ペダルの示す長さが、上限の 24 分を超えています</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal reports it as longer than 24 minutes, which is impossible. Unplug the pedal, plug it in again and try again.</source>
        <translation>ペダルの示す長さが上限の 24 分を超えていますが、これはあり得ません。ペダルを取り外し、もう一度接続して、お試しください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal stopped answering</source>
        <translation>ペダルが応答しなくなりました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal stopped partway through</source>
        <translation>ペダルが途中で停止しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the pedal was unplugged</source>
        <translation>ペダルが取り外されました</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>the slot is empty</source>
        <translation>スロットは空です</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>there is not enough memory to hold it</source>
        <translation>メモリーが足りません</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>this computer did not pass the request on to the pedal</source>
        <translation>このコンピューターが要求をペダルに渡しませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/reasons.cpp"/>
        <source>too little space on the disk</source>
        <translation>ディスクの空きが足りません</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>%1 ms are missing at its end</source>
        <translation>末尾の %1 ms が欠けています</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>%1 ms of it cannot be read</source>
        <translation>%1 ms 分を読み込めません</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>%1 was not saved: could not write to %2: %3</source>
        <translation>%1 は保存されませんでした：%2 に書き込めませんでした：%3</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>,</source>
        <extracomment>Between the thousands of a number.</extracomment>
        <translation>,</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Choose a folder that allows files of this size.</source>
        <translation>このサイズのファイルを保存できるフォルダーを選択してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Choose a folder that exists.</source>
        <translation>存在するフォルダーを選択してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Choose a folder that you can write to.</source>
        <translation>書き込みできるフォルダーを選択してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Choose a shorter name.</source>
        <translation>短い名前にしてください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Converting the file takes too much time or memory.</source>
        <translation>ファイルの変換に必要な時間またはメモリーが多すぎます。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>Free some space or choose another folder.</source>
        <translation>空きを増やすか、別のフォルダーを選択してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The audio converter %1 is not installed. To install it: sudo apt install ffmpeg</source>
        <translation>オーディオ変換プログラム %1 がインストールされていません。インストールするには：sudo apt install ffmpeg</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The audio converter failed: %1.</source>
        <translation>オーディオの変換に失敗しました：%1。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The conversion was cancelled.</source>
        <translation>変換はキャンセルされました。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The converted file cannot be written: %1</source>
        <translation>変換したファイルを書き込めません：%1</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The file cannot be read: %1.</source>
        <translation>ファイルを読み込めません：%1。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The file contains no audio.</source>
        <translation>ファイルに音声がありません。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The file is damaged or incomplete.</source>
        <translation>ファイルが破損しているか、不完全です。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The file is damaged or incomplete: %1.</source>
        <translation>ファイルが破損しているか、不完全です：%1。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The file is not audio, or its format is not supported. Use WAV, AIFF, FLAC, MP3, M4A, AAC or AC3.</source>
        <translation>オーディオファイルではないか、対応していない形式です。WAV、AIFF、FLAC、MP3、M4A、AAC、AC3 を使用してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The file's sample rate is %1 Hz; it must be from 4,000 to 768,000 Hz.</source>
        <translation>ファイルのサンプルレートは %1 Hz です。4,000～768,000 Hz にしてください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The maker's list of firmware has not been read yet.</source>
        <translation>メーカーのファームウェア一覧はまだ読み込まれていません。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The maker's list of firmware was last read at %1.</source>
        <translation>メーカーのファームウェア一覧の最終読み込み：%1。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The recording cannot be written and ends here: %1.</source>
        <translation>USB 通信の記録を書き込めないため、ここで終わります：%1。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The update server could not be reached (%1). Check the internet connection and try again.</source>
        <translation>更新サーバーに接続できませんでした（%1）。インターネット接続を確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The update server could not prove its identity (%1). Check the computer's clock and its certificates.</source>
        <translation>更新サーバーの正当性を確認できませんでした（%1）。コンピューターの時計と証明書を確認してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The update server did not answer as expected (%1). Try again later.</source>
        <translation>更新サーバーの応答が正しくありません（%1）。後でもう一度お試しください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>The update server did not list any usable firmware. Try again later.</source>
        <translation>更新サーバーに使用できるファームウェアがありません。後でもう一度お試しください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>There is no folder for temporary files.</source>
        <translation>一時ファイル用のフォルダーがありません。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>There is no such file.</source>
        <translation>ファイルがありません。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>There is not enough disk space.</source>
        <translation>ディスクの空きが足りません。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>There is too little space in "%1": %2. Make room or choose another folder.</source>
        <translation>「%1」の空きが足りません：%2。空きを増やすか、別のフォルダーを選択してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>This audio format is not supported: %1. Use WAV, AIFF, FLAC, MP3, M4A, AAC or AC3.</source>
        <translation>このオーディオ形式には対応していません：%1。WAV、AIFF、FLAC、MP3、M4A、AAC、AC3 を使用してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>This is a folder or a device, not a file.</source>
        <translation>ファイルではなく、フォルダーまたはデバイスです。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>its end is missing</source>
        <translation>末尾が欠けています</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>part of it cannot be read</source>
        <translation>一部を読み込めません</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>this computer did not pass the request on to the pedal: the file of the kernel's usbtmc driver could not be opened in time.</source>
        <translation>このコンピューターが要求をペダルに渡しませんでした：カーネルの usbtmc ドライバーのファイルを時間内に開けませんでした。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>this computer did not pass the request on to the pedal: the kernel's usbtmc driver, which it needs, does not know the pedal.</source>
        <translation>このコンピューターが要求をペダルに渡しませんでした：必要な usbtmc ドライバー（カーネル）がペダルを認識していません。</translation>
    </message>
    <message>
        <location filename="../../src/operations/sentences.cpp"/>
        <source>this computer did not pass the request on to the pedal: the udev rules for it are not installed.</source>
        <translation>このコンピューターが要求をペダルに渡しませんでした：必要な udev ルールがインストールされていません。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>"%1" cannot be read</source>
        <translation>「%1」を読み込めません</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>"%1" is damaged</source>
        <translation>「%1」は破損しています</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 are still on the pedal.</source>
        <comment>%1 is still on the pedal.</comment>
        <translation>
            <numerusform>%1 はまだペダルにあります。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 are still only on the pedal.</source>
        <comment>%1 is still only on the pedal.</comment>
        <translation>
            <numerusform>%1 はまだペダルにしかありません。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 could not be read back</source>
        <comment>%1 could not be read back</comment>
        <translation>
            <numerusform>%1 を読み戻せませんでした</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 erased</source>
        <translation>%1 を消去しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 may have been erased</source>
        <translation>%1 は消去された可能性があります</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 of %n loops erased</source>
        <comment>%1 of %n loop erased</comment>
        <translation>
            <numerusform>ループ %n 個中 %1 個を消去しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 of %n loops saved</source>
        <comment>%1 of %n loop saved</comment>
        <translation>
            <numerusform>ループ %n 個中 %1 個を保存しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 of %n loops sent, but not checked</source>
        <comment>%1 of %n loop sent, but not checked</comment>
        <translation>
            <numerusform>ループ %n 個中 %1 個を送信しましたが、確認していません</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 of %n loops written</source>
        <comment>%1 of %n loop written</comment>
        <translation>
            <numerusform>ループ %n 個中 %1 個を書き込みました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 on the pedal differ from their files</source>
        <comment>%1 on the pedal differs from its file</comment>
        <translation>
            <numerusform>ペダルの %1 がファイルと異なります</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 saved</source>
        <translation>%1 を保存しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 saved in %2</source>
        <translation>%1 を %2 に保存しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 sent, but not checked</source>
        <translation>%1 を送信しましたが、確認していません</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 verified</source>
        <translation>%1 を検証しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 was not erased</source>
        <translation>%1 は消去されませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 was not saved</source>
        <translation>%1 は保存されませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 was not written</source>
        <translation>%1 は書き込まれませんでした</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 were not compared.</source>
        <comment>%1 was not compared.</comment>
        <translation>
            <numerusform>%1 は比較されませんでした。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 were not written.</source>
        <comment>%1 was not written.</comment>
        <translation>
            <numerusform>%1 は書き込まれませんでした。</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>%1 written</source>
        <translation>%1 を書き込みました</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%n loops erased</source>
        <comment>%n loop erased</comment>
        <translation>
            <numerusform>ループ %n 個を消去しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%n loops saved</source>
        <comment>%n loop saved</comment>
        <translation>
            <numerusform>ループ %n 個を保存しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%n loops saved in %1</source>
        <comment>%n loop saved in %1</comment>
        <translation>
            <numerusform>ループ %n 個を %1 に保存しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%n loops sent, but not checked</source>
        <comment>%n loop sent, but not checked</comment>
        <translation>
            <numerusform>ループ %n 個を送信しましたが、確認していません</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%n loops verified</source>
        <comment>%n loop verified</comment>
        <translation>
            <numerusform>ループ %n 個を検証しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>%n loops written</source>
        <comment>%n loop written</comment>
        <translation>
            <numerusform>ループ %n 個を書き込みました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>Loops %1</source>
        <comment>Loop %1</comment>
        <translation>
            <numerusform>Loop %1</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Loops cannot be imported</source>
        <translation>ループをインポートできません</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Nothing was erased</source>
        <translation>何も消去されませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Nothing was erased.</source>
        <translation>何も消去されませんでした。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Nothing was saved</source>
        <translation>何も保存されませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Nothing was saved.</source>
        <translation>何も保存されませんでした。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Nothing was written</source>
        <translation>何も書き込まれませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Nothing was written.</source>
        <translation>何も書き込まれませんでした。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Report saved in %1</source>
        <translation>レポートを %1 に保存しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Some of the loops may have been erased</source>
        <translation>一部のループが消去された可能性があります</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>The pedal became busy; close and reopen the window to go on</source>
        <translation>ペダルが使用中になりました。続けるにはウィンドウを閉じて開き直してください</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>The recording ends here</source>
        <translation>USB 通信の記録はここで終わります</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>The report was not saved</source>
        <translation>レポートは保存されませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>Verifying was stopped</source>
        <translation>検証を停止しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>What the pedal sent back is the same, sample for sample.</source>
        <translation>ペダルから送り返された内容は、サンプル単位で一致しています。</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told.cpp"/>
        <source>loops %1</source>
        <comment>loop %1</comment>
        <translation>
            <numerusform>Loop %1</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>the computer did not give access in time</source>
        <translation>コンピューターが時間内にアクセスを許可しませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>the pedal refused</source>
        <translation>ペダルが拒否しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>the system rule is missing</source>
        <translation>システムのルールがありません</translation>
    </message>
    <message>
        <location filename="../../src/operations/told.cpp"/>
        <source>the system rule is not in force</source>
        <translation>システムのルールが有効になっていません</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%1 of %n changes made</source>
        <comment>%1 of %n changes made</comment>
        <translation>
            <numerusform>%n 件中 %1 件を変更しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%1 were erased.</source>
        <comment>%1 was erased.</comment>
        <translation>
            <numerusform>%1 を消去しました。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%1 were not touched.</source>
        <comment>%1 was not touched.</comment>
        <translation>
            <numerusform>%1 は元のままです。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%1 were written.</source>
        <comment>%1 was written.</comment>
        <translation>
            <numerusform>%1 を書き込みました。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%n loops backed up in %1</source>
        <comment>%n loop backed up in %1</comment>
        <translation>
            <numerusform>ループ %n 個を %1 にバックアップしました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%n loops restored</source>
        <comment>%n loop restored</comment>
        <translation>
            <numerusform>ループ %n 個を復元しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%n loops restored, %1 erased</source>
        <comment>%n loop restored, %1 erased</comment>
        <translation>
            <numerusform>ループ %n 個を復元、%1 個を消去しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%n of %1 were saved. The next backup in this folder continues from there.</source>
        <comment>%n of %1 was saved. The next backup in this folder continues from there.</comment>
        <translation>
            <numerusform>%1のうち %n 個を保存しました。このフォルダーへの次回のバックアップは続きから行います。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>%n of them were there already.</source>
        <comment>%n of them was there already.</comment>
        <translation>
            <numerusform>そのうち %n 個は保存済みでした。</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>All of them were there already.</source>
        <translation>すべて保存済みでした。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Erase loops on the pedal, or tick "Erase loops that are not in this backup".</source>
        <translation>ペダルのループを消去するか、「このバックアップにないループを消去」をオンにしてください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Nothing was backed up</source>
        <translation>何もバックアップされませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Nothing was changed.</source>
        <translation>何も変更されませんでした。</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Restoring erases %n loops on the 7306. Would you like to continue?</source>
        <comment>Restoring erases %n loop on the 7306. Would you like to continue?</comment>
        <translation>
            <numerusform>復元すると、7306 のループ %n 個が消去されます。
続けますか？</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Restoring replaces %1 and erases %2 on the 7306. Would you like to continue?</source>
        <translation>復元すると、7306 の%1が置き換えられ、%2が消去されます。
続けますか？</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>Restoring replaces %n loops on the 7306. Would you like to continue?</source>
        <comment>Restoring replaces %n loop on the 7306. Would you like to continue?</comment>
        <translation>
            <numerusform>復元すると、7306 のループ %n 個が置き換えられます。
続けますか？</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>The backup is not complete</source>
        <translation>バックアップは不完全です</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>The pedal already has all loops of this backup</source>
        <translation>このバックアップのループはすべてペダルにあります</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>What was written was read back and is the same, sample for sample.</source>
        <translation>書き込んだ内容を読み戻し、サンプル単位で一致することを確認しました。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>a newer version of this program wrote it</source>
        <translation>このプログラムの新しいバージョンで作成されています</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>it cannot be read</source>
        <translation>読み込めません</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>it is longer than the pedal's 24 minutes</source>
        <translation>ペダルの上限の 24 分を超えています</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>it is not complete</source>
        <translation>不完全です</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>it is not there any more</source>
        <translation>なくなっています</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>its folder cannot be created</source>
        <translation>フォルダーを作成できません</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>its index is damaged</source>
        <translation>インデックスが破損しています</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_backup.cpp"/>
        <source>its index is not one of a backup</source>
        <translation>インデックスがバックアップのものではありません</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>%1 % was sent</source>
        <translation>%1% を送信しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Firmware %1 cannot be offered</source>
        <translation>ファームウェア %1 は提供できません</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Firmware %1 runs on the pedal</source>
        <translation>ペダルはファームウェア %1 で動作しています</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Firmware %1 was sent. Install it again.</source>
        <translation>ファームウェア %1 を送信しました。もう一度インストールしてください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Firmware list read at %1: %2 is the newest</source>
        <translation>ファームウェア一覧を %1 に読み込みました：最新は %2 です</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>It did not confirm the image. Check whether this is its version.</source>
        <translation>ペダルからイメージの受信確認がありませんでした。ペダルがこのバージョンになっているか確認してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>It waits in its loader until it gets firmware.</source>
        <translation>ファームウェアが届くまでローダーで待機します。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Leave it plugged in: it may still be storing the firmware.</source>
        <translation>ファームウェアを保存中の可能性があります。取り外さないでください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>No firmware was installed</source>
        <translation>ファームウェアはインストールされませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Restarting the pedal</source>
        <translation>ペダルを再起動中</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Sending image</source>
        <translation>イメージを送信中</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Sending image, %1 %</source>
        <translation>イメージを送信中、%1%</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Sent, but the pedal has not come back yet</source>
        <translation>送信しましたが、ペダルがまだ戻っていません</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The firmware could not be sent completely</source>
        <translation>ファームウェアを最後まで送信できませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The firmware list could not be read</source>
        <translation>ファームウェア一覧を読み込めませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The firmware list has not been read yet</source>
        <translation>ファームウェア一覧はまだ読み込まれていません</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The firmware was sent</source>
        <translation>ファームウェアを送信しました</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The firmware was sent, but the pedal does not report its version</source>
        <translation>ファームウェアを送信しましたが、ペダルがバージョンを報告しません</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The firmware was sent, but the pedal has not restarted yet</source>
        <translation>ファームウェアを送信しましたが、ペダルがまだ再起動していません</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal came back without taking the image; close and reopen the window</source>
        <translation>ペダルはイメージを受け入れずに戻りました。ウィンドウを閉じて開き直してください</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal did not take the image</source>
        <translation>ペダルがイメージを受け入れませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal has not come back yet.</source>
        <translation>ペダルはまだ戻っていません。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal is preparing</source>
        <translation>ペダルが準備中です</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal keeps its firmware.</source>
        <translation>ペダルのファームウェアは元のままです。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal may have kept its firmware.</source>
        <translation>ペダルのファームウェアは元のままの可能性があります。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>The pedal may have stayed in its loader. Unplug it, plug it in again and install again.</source>
        <translation>ペダルがローダーのままの可能性があります。取り外し、もう一度接続して、インストールし直してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Unplug it and plug it in again.</source>
        <translation>取り外して、もう一度接続してください。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Unplug it and plug it in again. The program goes on looking for it for ten minutes.</source>
        <translation>取り外して、もう一度接続してください。プログラムは 10 分間ペダルを探し続けます。</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>Waiting for the pedal to come back</source>
        <translation>ペダルが戻るのを待っています</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>it came back in its loader</source>
        <translation>ローダーの状態で戻りました</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>it is back with firmware %1</source>
        <translation>ファームウェア %1 で戻りました</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>its image could not be downloaded, verified and stored</source>
        <translation>イメージをダウンロード、検証、保存できませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>the maker's server could not be reached</source>
        <translation>メーカーのサーバーに接続できませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>the server could not prove that it is the maker's</source>
        <translation>メーカーのサーバーであることを確認できませんでした</translation>
    </message>
    <message>
        <location filename="../../src/operations/told_flash.cpp"/>
        <source>what the maker's server sent cannot be used</source>
        <translation>メーカーのサーバーから届いたデータは使用できません</translation>
    </message>
    <message>
        <location filename="../../src/platform/awake.cpp"/>
        <source>Loops are being copied</source>
        <translation>ループをコピー中です</translation>
    </message>
    <message>
        <location filename="../../src/platform/awake.cpp"/>
        <source>The pedal's firmware is being installed</source>
        <translation>ペダルのファームウェアをインストール中です</translation>
    </message>
    <message>
        <location filename="../../src/platform/free_space.cpp"/>
        <source>%1 B</source>
        <translation>%1 B</translation>
    </message>
    <message>
        <location filename="../../src/platform/free_space.cpp"/>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <location filename="../../src/platform/free_space.cpp"/>
        <source>%1 are needed and %2 are free</source>
        <translation>%1 必要ですが、空きは %2 です</translation>
    </message>
    <message>
        <location filename="../../src/platform/free_space.cpp"/>
        <source>%1 kB</source>
        <translation>%1 KB</translation>
    </message>
    <message>
        <location filename="../../src/platform/free_space.cpp"/>
        <source>%1.%2</source>
        <translation>%1.%2</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Cannot allocate memory</source>
        <translation>メモリーが足りません</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Connection timed out</source>
        <translation>接続がタイムアウトしました</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Device or resource busy</source>
        <translation>デバイスまたはリソースが使用中です</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Disk quota exceeded</source>
        <translation>ディスクの割り当て容量を超えました</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>File exists</source>
        <translation>ファイルがすでに存在します</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>File name too long</source>
        <translation>ファイル名が長すぎます</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>File too large</source>
        <translation>ファイルが大きすぎます</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Input/output error</source>
        <translation>入出力エラー</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Is a directory</source>
        <translation>フォルダーです</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>No space left on device</source>
        <translation>デバイスに空きがありません</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>No such device</source>
        <translation>デバイスがありません</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>No such device or address</source>
        <translation>デバイスまたはアドレスがありません</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>No such file or directory</source>
        <translation>ファイルまたはフォルダーがありません</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Not a directory</source>
        <translation>フォルダーではありません</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Operation not permitted</source>
        <translation>許可されていない操作です</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Permission denied</source>
        <translation>アクセス権がありません</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Read-only file system</source>
        <translation>読み取り専用のファイルシステムです</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Stale file handle</source>
        <translation>ファイルへの接続が無効になりました</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Too many open files</source>
        <translation>開いているファイルが多すぎます</translation>
    </message>
    <message>
        <location filename="../../src/platform/system_reason.cpp"/>
        <source>Transport endpoint is not connected</source>
        <translation>ドライブが接続されていません</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot.cpp"/>
        <source>complete</source>
        <translation>完了</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_button.cpp"/>
        <source>Add Loop</source>
        <translation>ループを追加</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_button.cpp"/>
        <source>Overwrite Loop</source>
        <translation>ループを上書き</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>%1 name</source>
        <translation>%1 の名前</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>%1 plays</source>
        <translation>%1 を再生中</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>%1, select</source>
        <translation>%1、選択</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Add %1</source>
        <translation>%1 を追加</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Compare with %1</source>
        <translation>%1 と比較</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Overwrite %1</source>
        <translation>%1 を上書き</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Play %1</source>
        <translation>%1 を再生</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>Play %1, %2</source>
        <translation>%1 を再生、%2</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Remove file from loop %1</source>
        <translation>Loop %1 からファイルを外す</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>Stop %1</source>
        <translation>%1 を停止</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>being read</source>
        <translation>読み込み中</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>picked up</source>
        <translation>選択中</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>playing</source>
        <translation>再生中</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>staged</source>
        <translation>書き込み予定</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>staged, replaces a loop</source>
        <translation>書き込み予定、ループを置き換え</translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_sound.cpp"/>
        <source>Tempo %1</source>
        <translation>テンポ %1</translation>
    </message>
    <message>
        <location filename="../../src/troubleshooting/doctor.cpp"/>
        <source>%1 goes into %2.</source>
        <translation>%1 は %2 に入ります。</translation>
    </message>
    <message>
        <location filename="../../src/troubleshooting/root_shell.cpp"/>
        <source>%1 could not be started</source>
        <translation>%1 を起動できませんでした</translation>
    </message>
    <message>
        <location filename="../../src/troubleshooting/root_shell.cpp"/>
        <source>no password was given</source>
        <translation>パスワードが入力されませんでした</translation>
    </message>
    <message>
        <location filename="../../src/troubleshooting/root_shell.cpp"/>
        <source>the commands ended with status %1</source>
        <translation>コマンドがステータス %1 で終了しました</translation>
    </message>
    <message>
        <location filename="../../src/troubleshooting/root_shell.cpp"/>
        <source>the password could not be asked for, or it was wrong</source>
        <translation>パスワードを入力できなかったか、間違っています</translation>
    </message>
    <message>
        <location filename="../../src/ui/alert.cpp"/>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
    <message>
        <location filename="../../src/ui/alert.cpp"/>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <location filename="../../src/ui/mass_selection_button.cpp"/>
        <source>All</source>
        <translation>全選択</translation>
    </message>
    <message>
        <location filename="../../src/ui/mass_selection_button.cpp"/>
        <source>None</source>
        <translation>全解除</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/about_window.cpp"/>
        <source>About 7306 Loop Manager</source>
        <translation>7306 Loop Manager について</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/about_window.cpp"/>
        <source>Version %1</source>
        <translation>バージョン %1</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Back Up</source>
        <translation>バックアップ</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Backup</source>
        <translation>バックアップ</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Copy the whole pedal to this computer</source>
        <translation>ペダル全体をこのコンピューターにコピー</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Erase loops that are not in this backup</source>
        <translation>このバックアップにないループを消去</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Folder</source>
        <translation>フォルダー</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Loops that are the same are not copied twice.</source>
        <translation>同じループは二重にコピーされません。</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Other folder…</source>
        <translation>別のフォルダー…</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/backup_panel.cpp"/>
        <source>Put a backup back onto the pedal</source>
        <translation>バックアップをペダルに復元</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>%n copies on this computer, %1. Above 2 GB the oldest are removed.</source>
        <comment>%n copy on this computer, %1. Above 2 GB the oldest are removed.</comment>
        <translation>
            <numerusform>このコンピューターにコピー %n 個、%1。2 GB を超えると古いものから削除されます。</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>A loop is copied here before you erase or replace it.</source>
        <translation>消去や置き換えの前に、
ループがここにコピーされます。</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Bring Back</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Bring back loops that were erased or replaced</source>
        <translation>消去または置き換えたループを元に戻す</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Keep Copies is off: what you erase or replace now is gone.</source>
        <translation>「コピーを保管」がオフのため、
消去や置き換えは元に戻せません。</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>No copies on this computer.</source>
        <translation>このコンピューターにコピーはありません。</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Nothing to bring back</source>
        <translation>元に戻すものはありません</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back.cpp"/>
        <source>Nothing to bring back.</source>
        <translation>元に戻すものはありません。</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>%1, %2, %3, %4</source>
        <translation>%1、%2、%3、%4</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>to %1</source>
        <translation>%1 へ</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>to slot %1</source>
        <translation>スロット %1 へ</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>to slot %1, empty</source>
        <translation>スロット %1（空）へ</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back_row.cpp"/>
        <source>to slot %1, replaces its loop</source>
        <translation>スロット %1 へ、ループを置き換え</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/bring_back_targets.cpp"/>
        <source>Slots</source>
        <translation>スロット</translation>
    </message>
    <message numerus="yes">
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>%n problems were found</source>
        <comment>%n problem was found</comment>
        <translation>
            <numerusform>%n 件の問題が見つかりました</numerusform>
        </translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Checking the pedal and this computer…</source>
        <translation>ペダルとこのコンピューターを調べています…</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Copies the findings as text</source>
        <translation>診断結果をテキストとしてコピー</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <location filename="../../src/ui/status/outcome_row.cpp"/>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Doctor</source>
        <translation>診断</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>No problems were found</source>
        <translation>問題は見つかりませんでした</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>OK: %1</source>
        <translation>OK：%1</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Problem: %1</source>
        <translation>問題：%1</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/doctor_panel.cpp"/>
        <source>Save Report…</source>
        <translation>レポートを保存…</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>About...</source>
        <translation>このアプリについて…</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Choose a firmware file for the pedal</source>
        <translation>ペダルのファームウェアファイルを選択</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Close menu</source>
        <translation>メニューを閉じる</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Firmware Update...</source>
        <translation>ファームウェアの更新…</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Firmware files</source>
        <translation>ファームウェアファイル</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Select Firmware...</source>
        <translation>ファームウェアを選択…</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/menu.cpp"/>
        <source>Software Update...</source>
        <translation>ソフトウェアの更新…</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/progress.cpp"/>
        <source>%1 of %2 – %3%</source>
        <translation>%1 / %2 – %3%</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/progress.cpp"/>
        <source>%1B</source>
        <translation>%1 B</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/progress.cpp"/>
        <source>%1KB</source>
        <translation>%1 KB</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/progress.cpp"/>
        <source>%1MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <location filename="../../src/ui/panels/progress.cpp"/>
        <source>Transferred</source>
        <translation>転送済み</translation>
    </message>
    <message>
        <location filename="../../src/ui/qt_dialogs.cpp"/>
        <source>All files</source>
        <translation>すべてのファイル</translation>
    </message>
    <message>
        <location filename="../../src/ui/shield.cpp"/>
        <source>The 7306 is busy</source>
        <translation>7306 は使用中です</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/outcome_list.cpp"/>
        <source>Nothing has happened yet.</source>
        <translation>まだ何も行われていません。</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/outcome_list.cpp"/>
        <location filename="../../src/ui/status/status_sentence.cpp"/>
        <source>Recent results</source>
        <translation>最近の結果</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/outcome_row.cpp"/>
        <source>%1 %2.</source>
        <translation>%1 %2。</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/outcome_row.cpp"/>
        <source>%1, %2.</source>
        <translation>%1、%2。</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/outcome_row.cpp"/>
        <source>%1, failed, %2.</source>
        <translation>%1、失敗、%2。</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/status_line.cpp"/>
        <source>%1, button.</source>
        <translation>%1、ボタン。</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/status_line.cpp"/>
        <source>Failed: %1.</source>
        <translation>失敗：%1。</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/status_sentence.cpp"/>
        <source>Failed: %1</source>
        <translation>失敗：%1</translation>
    </message>
    <message>
        <location filename="../../src/ui/status/status_sentence.cpp"/>
        <source>Shows the recent results</source>
        <translation>最近の結果を表示</translation>
    </message>
    <message>
        <location filename="../../src/ui/times.cpp"/>
        <source>HH:mm</source>
        <extracomment>A time of day, by the letters of QLocale.</extracomment>
        <translation>HH:mm</translation>
    </message>
    <message>
        <location filename="../../src/ui/times.cpp"/>
        <source>en</source>
        <translation>ja</translation>
    </message>
    <message>
        <location filename="../../src/updates/app_image.cpp"/>
        <source>the path of the program or of its previous version is not a file</source>
        <translation>プログラムまたは以前のバージョンのパスがファイルではありません</translation>
    </message>
    <message>
        <location filename="../../src/updates/app_image.cpp"/>
        <source>the previous version cannot be kept</source>
        <translation>以前のバージョンを保管できません</translation>
    </message>
    <message>
        <location filename="../../src/updates/app_image.cpp"/>
        <source>the program no longer exists</source>
        <translation>プログラムがなくなっています</translation>
    </message>
    <message>
        <location filename="../../src/updates/firmware_texts.cpp"/>
        <source>KZQ7306 %1 is now available—you have %2. Would you like to install it now?</source>
        <translation>KZQ7306 %1 が利用できます（現在は %2）。今すぐインストールしますか？</translation>
    </message>
    <message>
        <location filename="../../src/updates/part_file.cpp"/>
        <source>another program is downloading the same file</source>
        <translation>別のプログラムが同じファイルをダウンロード中です</translation>
    </message>
    <message>
        <location filename="../../src/updates/part_file.cpp"/>
        <source>the download cannot be completed</source>
        <translation>ダウンロードを完了できません</translation>
    </message>
    <message>
        <location filename="../../src/updates/part_file.cpp"/>
        <source>the download cannot be moved into place</source>
        <translation>ダウンロードしたファイルを移動できません</translation>
    </message>
    <message>
        <location filename="../../src/updates/part_file.cpp"/>
        <source>the download cannot be stored</source>
        <translation>ダウンロードしたデータを保存できません</translation>
    </message>
    <message>
        <location filename="../../src/updates/part_file.cpp"/>
        <source>the file at the path for the download belongs to another user</source>
        <translation>ダウンロード先のファイルは別のユーザーのものです</translation>
    </message>
    <message>
        <location filename="../../src/updates/part_file.cpp"/>
        <location filename="../../src/updates/update_download.cpp"/>
        <source>the path for the download is not a file</source>
        <translation>ダウンロード先のパスがファイルではありません</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>not an https address</source>
        <translation>https のアドレスではありません</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>redirected to an address that is not https</source>
        <translation>https でないアドレスにリダイレクトされました</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>the download took too long</source>
        <translation>ダウンロードに時間がかかりすぎました</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>the file could not be stored</source>
        <translation>ファイルを保存できませんでした</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>the file is shorter than stated</source>
        <translation>ファイルが通知されたサイズより小さくなっています</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>the file is too long</source>
        <translation>ファイルが大きすぎます</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>the server stopped answering</source>
        <translation>サーバーが応答しなくなりました</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>the stated length is too large</source>
        <translation>通知されたサイズが大きすぎます</translation>
    </message>
    <message>
        <location filename="../../src/updates/qt_http_client.cpp"/>
        <source>too many redirects</source>
        <translation>リダイレクトの回数が多すぎます</translation>
    </message>
    <message>
        <location filename="../../src/updates/self_check.cpp"/>
        <source>it cannot be started</source>
        <translation>起動できません</translation>
    </message>
    <message>
        <location filename="../../src/updates/self_check.cpp"/>
        <source>it does not answer</source>
        <translation>応答しません</translation>
    </message>
    <message>
        <location filename="../../src/updates/self_check.cpp"/>
        <source>it ends with an error</source>
        <translation>エラーで終了します</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <source>the package installer could not be started; install this package yourself: %1</source>
        <translation>パッケージのインストーラーを起動できませんでした。このパッケージを手動でインストールしてください：%1</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <location filename="../../src/updates/update_download.cpp"/>
        <source>the signature of the update is wrong</source>
        <translation>更新の署名が正しくありません</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <source>the update is not signed</source>
        <translation>更新に署名がありません</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <source>the update's address is not secure</source>
        <translation>更新のアドレスが安全ではありません</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <source>the update's length is missing or out of range</source>
        <translation>更新のサイズがないか、範囲外です</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <source>the updated program could not be started; quit and start it again</source>
        <translation>更新したプログラムを起動できませんでした。終了して、もう一度起動してください</translation>
    </message>
    <message>
        <location filename="../../src/updates/su_updater.cpp"/>
        <source>the website %1 could not be opened</source>
        <translation>ウェブサイト %1 を開けませんでした</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_download.cpp"/>
        <source>the length of the update is not the stated one</source>
        <translation>更新のサイズが通知されたものと異なります</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_download.cpp"/>
        <source>the update is not an AppImage</source>
        <translation>更新が AppImage ではありません</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_download.cpp"/>
        <source>the update is not the one that was signed</source>
        <translation>署名された更新と異なります</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_download.cpp"/>
        <source>the update is not verified</source>
        <translation>更新が検証されていません</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>it is not the stated version</source>
        <translation>通知されたバージョンと異なります</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>the list of updates could not be read: %1</source>
        <translation>更新の一覧を読み込めませんでした：%1</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>the list of updates is damaged</source>
        <translation>更新の一覧が破損しています</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>the new version does not work: %1; the program in place was not changed</source>
        <translation>新しいバージョンが動作しません：%1。現在のプログラムは変更されていません</translation>
    </message>
    <message>
        <location filename="../../src/updates/update_job.cpp"/>
        <source>the update could not be downloaded: %1</source>
        <translation>更新をダウンロードできませんでした：%1</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/firmware_updater_progress.cpp"/>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update.cpp"/>
        <source>The pedal is busy. Try again later.</source>
        <translation>ペダルは使用中です。後でもう一度お試しください。</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1 is installed. Would you like to start it now?</source>
        <translation>%1 をインストールしました。今すぐ起動しますか？</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1 is now available—you have %2. This copy cannot update itself.</source>
        <translation>%1 が利用できます（現在は %2）。このプログラムは自動では更新できません。</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1 is now available—you have %2. Would you like to install it now?</source>
        <translation>%1 が利用できます（現在は %2）。今すぐインストールしますか？</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1 is the newest version available.</source>
        <translation>%1 は最新バージョンです。</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>%1 of %2 – %3 %</source>
        <translation>%1 / %2 – %3%</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Checking for updates…</source>
        <translation>更新を確認中…</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Checking the download…</source>
        <translation>ダウンロードを検証中…</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Downloading %1…</source>
        <translation>%1 をダウンロード中…</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Follow its steps, then quit this program and start it again.</source>
        <translation>インストーラーの手順に従った後、このプログラムを終了して、もう一度起動してください。</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Installing %1…</source>
        <translation>%1 をインストール中…</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Restart</source>
        <translation>再起動</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>The package installer has taken over.</source>
        <translation>パッケージのインストーラーに引き継ぎました。</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>The program could not be updated.</source>
        <translation>プログラムを更新できませんでした。</translation>
    </message>
    <message>
        <location filename="../../src/updates/windows/software_update_view.cpp"/>
        <source>Website</source>
        <translation>ウェブサイト</translation>
    </message>
    <message>
        <location filename="../../src/words/words.cpp"/>
        <source>%1 %2</source>
        <translation>%1%2</translation>
    </message>
</context>
</TS>
