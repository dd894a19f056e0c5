<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja">
<context>
    <name>CWinMain</name>
    <message>
        <source>Raw GPS output file (*.txt)</source>
        <translation>すべての GPS データ (*.txt)</translation>
    </message>
    <message>
        <source>GPS Exchange Format (*.gpx)</source>
        <translation>GPX 形式 (*.gpx)</translation>
    </message>
    <message>
        <source>OziExplorer track (*.plt)</source>
        <translation>OziExplorer 軌跡 (*.plt)</translation>
    </message>
    <message>
        <source>GoogleEarth track (*.kml)</source>
        <translation>Google Earth 軌跡 (*.kml)</translation>
    </message>
</context>
<context>
    <name>Dialog</name>
    <message>
        <source>Извлечение данных GPS</source>
        <translation>GPS データの抽出</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>VrkTrk</source>
        <translation>VrkTrk</translation>
    </message>
    <message>
        <source>Выберите этот вормат для передачи данных GPS в программу OziExplorer</source>
        <translation>GPS データを OziExplorer で使う場合は、この形式を選択してください</translation>
    </message>
    <message>
        <source>OziExplorer track (.plt)</source>
        <translation>OziExplorer 軌跡 (.plt)</translation>
    </message>
    <message>
        <source>В выходной файл будут записаны все сообщения полученные от пиёмника GPS, содержащиеся в архиве.</source>
        <translation>アーカイブに含まれる GPS 受信機のすべてのメッセージを出力ファイルに書き込みます。</translation>
    </message>
    <message>
        <source>Полные данные GPS (.txt)</source>
        <translation>すべての GPS データ (.txt)</translation>
    </message>
    <message>
        <source>Формат, специально предназначенный для обмена GPS данными между программами.&lt;br&gt;Совместим с наибольшим числом программ.</source>
        <translation>プログラム間で GPS データを交換するための形式です。&lt;br&gt;最も多くのプログラムで利用できます。</translation>
    </message>
    <message>
        <source>GPS Exchange Format (.gpx)</source>
        <translation>GPX 形式 (.gpx)</translation>
    </message>
    <message>
        <source>Выберите этот формат для просмотра полученного GPS трека в программе GoogleEarth или на сайте https://maps.google.com/</source>
        <translation>GPS 軌跡を Google Earth または https://maps.google.com/ で表示する場合は、この形式を選択してください</translation>
    </message>
    <message>
        <source>GoogleEarth KML (.kml)</source>
        <translation>Google Earth KML (.kml)</translation>
    </message>
    <message>
        <source>&lt;b&gt;Выберите формат GPS трека для сохранения&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Необходимый формат сохранения зависит от используемого Вами ПО. Пожалуйста проверьте допустимые для Вашего ПО  форматы в его инструкции.&lt;/font&gt;</source>
        <translation>&lt;b&gt;GPS 軌跡の形式を選択&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;必要な形式は、お使いのソフトウェアによって異なります。対応している形式は、ソフトウェアの説明書で確認してください。&lt;/font&gt;</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>VRK3 files (*.vrk3)</source>
        <translation>VRK3 ファイル (*.vrk3)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>File %s not found. Please reinstall the application.</source>
        <translation>ファイル %s が見つかりません。アプリケーションを再インストールしてください。</translation>
    </message>
</context>
<context>
    <name>ZelWindowTitle</name>
    <message>
        <source>Свернуть</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Развернуть</source>
        <translation>最大化</translation>
    </message>
    <message>
        <source>Закрыть</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Восстановить</source>
        <translation>元に戻す</translation>
    </message>
</context>
</TS>
