<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ko">
<context>
    <name>tvx</name>
    <message>
        <source>화일(&amp;F)</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>불러오기(&amp;T)	(Ctrl+T)</source>
        <translation>&amp;Load	(Ctrl+T)</translation>
    </message>
    <message>
        <source>그림화일 생성</source>
        <translation>Make Picture File</translation>
    </message>
    <message>
        <source>다중 Afa Cut Time</source>
        <translation>Multiple Afa Cut Time</translation>
    </message>
    <message>
        <source>TVX 출력</source>
        <translation>TVX Output</translation>
    </message>
    <message>
        <source>마스타</source>
        <translation>Master</translation>
    </message>
    <message>
        <source>생성</source>
        <translation>Make</translation>
    </message>
    <message>
        <source>삭제</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>저장</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>불러오기</source>
        <translation>Load</translation>
    </message>
    <message>
        <source>그래픽(&amp;G)</source>
        <translation>&amp;Graphics</translation>
    </message>
    <message>
        <source>그리기 방식</source>
        <translation>Drawing Mode</translation>
    </message>
    <message>
        <source>문자만 보기</source>
        <translation>Text Only</translation>
    </message>
    <message>
        <source>그래픽만 보기</source>
        <translation>Graphics Only</translation>
    </message>
    <message>
        <source>위에서 보기(F1)</source>
        <translation>From Above(F1)</translation>
    </message>
    <message>
        <source>앞에서 보기(F2)</source>
        <translation>From the Front(F2)</translation>
    </message>
    <message>
        <source>우측에서보기(F3)</source>
        <translation>From the Right(F3)</translation>
    </message>
    <message>
        <source>입체로 보기(F4)</source>
        <translation>In Three Dimensions(F4)</translation>
    </message>
    <message>
        <source>입체로 보기2(F5)</source>
        <translation>In Three Dimensions 2(F5)</translation>
    </message>
    <message>
        <source>입체로 보기3(F6)</source>
        <translation>In Three Dimensions 3(F6)</translation>
    </message>
    <message>
        <source>입체로 보기4(F7)</source>
        <translation>In Three Dimensions 4(F7)</translation>
    </message>
    <message>
        <source>자동 확대축소(F8)</source>
        <translation>Auto Zoom(F8)</translation>
    </message>
    <message>
        <source>다시그리기(F9)</source>
        <translation>Redraw(F9)</translation>
    </message>
    <message>
        <source>급속이송(ON/OFF)(F10)</source>
        <translation>Rapid Moves(ON/OFF)(F10)</translation>
    </message>
    <message>
        <source>공구보이기(ON(F11)/OFF(F12))</source>
        <translation>Show Tool(ON(F11)/OFF(F12))</translation>
    </message>
    <message>
        <source>설정</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>환경설정</source>
        <translation>Environment</translation>
    </message>
    <message>
        <source>Com port 사용</source>
        <translation>Use COM Port</translation>
    </message>
    <message>
        <source>디렉토리 리스트</source>
        <translation>Directory List</translation>
    </message>
    <message>
        <source>사용자 KEY</source>
        <translation>User KEY</translation>
    </message>
    <message>
        <source>기타</source>
        <translation>Other</translation>
    </message>
    <message>
        <source>급속이송 높이 고정</source>
        <translation>Fix Rapid Height</translation>
    </message>
    <message>
        <source>고속절삭-&gt;급속이송</source>
        <translation>High-Speed Cut-&gt;Rapid</translation>
    </message>
    <message>
        <source>급속이송-&gt;절삭이송</source>
        <translation>Rapid-&gt;Cutting Feed</translation>
    </message>
    <message>
        <source>호출기 설정</source>
        <translation>Pager Setting</translation>
    </message>
    <message>
        <source>Nc data 화일 불러오기.</source>
        <translation>Load an Nc data file.</translation>
    </message>
    <message>
        <source>AFA를 위한 마스터 모델 생성</source>
        <translation>Make a master model for AFA</translation>
    </message>
    <message>
        <source>AFA를 위한 마스터 모델 삭제</source>
        <translation>Delete the master model for AFA</translation>
    </message>
    <message>
        <source>AFA를 위한 마스터 모델 저장</source>
        <translation>Save the master model for AFA</translation>
    </message>
    <message>
        <source>AFA를 위한 마스터 모델 불러오기</source>
        <translation>Load a master model for AFA</translation>
    </message>
    <message>
        <source>범례</source>
        <translation>Legend</translation>
    </message>
    <message>
        <source>피드 (mm/min)</source>
        <translation>Feed (mm/min)</translation>
    </message>
    <message>
        <source>급속이송</source>
        <translation>Rapid Moves</translation>
    </message>
    <message>
        <source>기준피드</source>
        <translation>Base feed</translation>
    </message>
    <message>
        <source>블록</source>
        <translation>Blocks</translation>
    </message>
    <message>
        <source>범위 (mm)</source>
        <translation>Extents (mm)</translation>
    </message>
    <message>
        <source>절삭시간</source>
        <translation>Cutting time</translation>
    </message>
    <message>
        <source>소요시간</source>
        <translation>Total time</translation>
    </message>
    <message>
        <source>취소</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>환경화일 DIR</source>
        <translation>Environment file DIR</translation>
    </message>
    <message>
        <source>작업 DIR</source>
        <translation>Work DIR</translation>
    </message>
    <message>
        <source>AFA 조건 DIR</source>
        <translation>AFA condition DIR</translation>
    </message>
    <message>
        <source>편집기(editor)</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source>추가</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>수정</source>
        <translation>Change</translation>
    </message>
    <message>
        <source>갱신</source>
        <translation>Refresh</translation>
    </message>
    <message>
        <source>문자 또는 숫자를 입력하시요</source>
        <translation>Enter letters or digits</translation>
    </message>
    <message>
        <source>정수 Ncdata</source>
        <translation>Integer Ncdata</translation>
    </message>
    <message>
        <source>최소 급속이송</source>
        <translation>Lowest rapid feed</translation>
    </message>
    <message>
        <source>NCDATA확장자</source>
        <translation>NCDATA extension</translation>
    </message>
    <message>
        <source>마스터 모델 생성</source>
        <translation>Make Master Model</translation>
    </message>
    <message>
        <source>공구 직경</source>
        <translation>Tool diameter</translation>
    </message>
    <message>
        <source>가공 여유</source>
        <translation>Machining allowance</translation>
    </message>
    <message>
        <source>마스터 모델 공차</source>
        <translation>Master model tolerance</translation>
    </message>
    <message>
        <source>자동 피드 조정</source>
        <translation>Automatic Feed Adjustment</translation>
    </message>
    <message>
        <source>조건저장</source>
        <translation>Save Conditions</translation>
    </message>
    <message>
        <source>가공조건 화일 :</source>
        <translation>Machining condition file :</translation>
    </message>
    <message>
        <source>가공소재</source>
        <translation>Work material</translation>
    </message>
    <message>
        <source>AFA 설정</source>
        <translation>AFA Setup</translation>
    </message>
    <message>
        <source>&lt;&lt; 코너 가중치 &gt;&gt;</source>
        <translation>&lt;&lt; Corner weights &gt;&gt;</translation>
    </message>
    <message>
        <source>&lt;&lt; 경사 가중치 &gt;&gt;</source>
        <translation>&lt;&lt; Slope weights &gt;&gt;</translation>
    </message>
    <message>
        <source>전송 dialog</source>
        <translation>Send dialog</translation>
    </message>
    <message>
        <source>최저 피드</source>
        <translation>Lowest feed</translation>
    </message>
    <message>
        <source>최대 피드</source>
        <translation>Highest feed</translation>
    </message>
    <message>
        <source>조건화일 :</source>
        <translation>Afa file :</translation>
    </message>
    <message>
        <source>전송</source>
        <translation>Send</translation>
    </message>
    <message>
        <source>전송 취소</source>
        <translation>Cancel Sending</translation>
    </message>
    <message>
        <source>전송 화일</source>
        <translation>Files to Send</translation>
    </message>
    <message>
        <source>화일 리스트</source>
        <translation>File List</translation>
    </message>
    <message>
        <source>화일 미리보기</source>
        <translation>File Preview</translation>
    </message>
    <message>
        <source>M30삭제</source>
        <translation>Delete M30</translation>
    </message>
    <message>
        <source>AFA 설정:</source>
        <translation>AFA setup:</translation>
    </message>
    <message>
        <source>삽입</source>
        <translation>Insert</translation>
    </message>
    <message>
        <source>청소</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>화일정보</source>
        <translation>File Information</translation>
    </message>
    <message>
        <source>미리보기</source>
        <translation>Preview</translation>
    </message>
    <message>
        <source>편집</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>읽기</source>
        <translation>Read</translation>
    </message>
    <message>
        <source>화일확장자</source>
        <translation>File Extension</translation>
    </message>
    <message>
        <source>K추가</source>
        <translation>K Add</translation>
    </message>
    <message>
        <source>K삽입</source>
        <translation>K Insert</translation>
    </message>
    <message>
        <source>K삭제</source>
        <translation>K Delete</translation>
    </message>
    <message>
        <source>K수정</source>
        <translation>K Change</translation>
    </message>
    <message>
        <source>K저장</source>
        <translation>K Save</translation>
    </message>
    <message>
        <source>K읽기</source>
        <translation>K Read</translation>
    </message>
    <message>
        <source>재전송</source>
        <translation>Restart</translation>
    </message>
    <message>
        <source>시퀀스 번호</source>
        <translation>Sequence number</translation>
    </message>
    <message>
        <source>NCDATA 블록</source>
        <translation>NCDATA block</translation>
    </message>
    <message>
        <source>Z 영역</source>
        <translation>Z area</translation>
    </message>
    <message>
        <source>X,Y,Z 좌표</source>
        <translation>X,Y,Z coordinates</translation>
    </message>
    <message>
        <source>Key code를 입력하시요 !!</source>
        <translation>Enter the key code !!</translation>
    </message>
    <message>
        <source>Info list에추가</source>
        <translation>Add to Info List</translation>
    </message>
    <message>
        <source>&lt;&lt; 절삭조건 입력 &gt;&gt;</source>
        <translation>&lt;&lt; Cutting Condition Input &gt;&gt;</translation>
    </message>
    <message>
        <source>&lt;&lt; 장비 능력 &gt;&gt;</source>
        <translation>&lt;&lt; Machine Capacity &gt;&gt;</translation>
    </message>
    <message>
        <source>&lt;&lt; 절삭조건 출력 &gt;&gt;</source>
        <translation>&lt;&lt; Cutting Condition Output &gt;&gt;</translation>
    </message>
    <message>
        <source>공구 재질</source>
        <translation>Tool material</translation>
    </message>
    <message>
        <source>공구 날수</source>
        <translation>Number of flutes</translation>
    </message>
    <message>
        <source>고속황삭</source>
        <translation>High-speed roughing</translation>
    </message>
    <message>
        <source>확인</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>이송 속도</source>
        <translation>Feed rate</translation>
    </message>
    <message>
        <source>공구 길이</source>
        <translation>Tool length</translation>
    </message>
    <message>
        <source>절삭 깊이</source>
        <translation>Cutting depth</translation>
    </message>
    <message>
        <source>Spindle 회전수</source>
        <translation>Spindle speed</translation>
    </message>
    <message>
        <source>공구 날길이</source>
        <translation>Flute length</translation>
    </message>
    <message>
        <source>최대 회전수</source>
        <translation>Highest speed</translation>
    </message>
    <message>
        <source>최대 FEED</source>
        <translation>Highest FEED</translation>
    </message>
    <message>
        <source>분당 절삭량</source>
        <translation>Removal per minute</translation>
    </message>
    <message>
        <source>무부하 POWER(KW)</source>
        <translation>Idle POWER(KW)</translation>
    </message>
    <message>
        <source>흑연</source>
        <translation>Graphite</translation>
    </message>
    <message>
        <source>알루미늄</source>
        <translation>Aluminium</translation>
    </message>
    <message>
        <source>동</source>
        <translation>Copper</translation>
    </message>
    <message>
        <source>황동</source>
        <translation>Brass</translation>
    </message>
    <message>
        <source>주철</source>
        <translation>Cast iron</translation>
    </message>
    <message>
        <source>얄처리SKD61</source>
        <translation>Hardened SKD61</translation>
    </message>
    <message>
        <source>하이스</source>
        <translation>High-speed steel</translation>
    </message>
    <message>
        <source>코팅하이스</source>
        <translation>Coated high-speed steel</translation>
    </message>
    <message>
        <source>초경</source>
        <translation>Carbide</translation>
    </message>
    <message>
        <source>고속초경</source>
        <translation>High-speed carbide</translation>
    </message>
    <message>
        <source>고속코팅초경</source>
        <translation>High-speed coated carbide</translation>
    </message>
    <message>
        <source>모든 화일</source>
        <translation>All files</translation>
    </message>
    <message>
        <source>화일을 열수 없읍니다.
</source>
        <translation>The file cannot be opened.
</translation>
    </message>
    <message>
        <source>드라이브에 없는 화일입니다.</source>
        <translation>The file is on none of the drives.</translation>
    </message>
    <message>
        <source>화일 이름</source>
        <translation>File name</translation>
    </message>
    <message>
        <source>화일 정보</source>
        <translation>File information</translation>
    </message>
    <message>
        <source>전체 시간 </source>
        <translation>Total time </translation>
    </message>
    <message>
        <source>TVX  화일명을 입력 하시요!!</source>
        <translation>TVX  Enter the file name!!</translation>
    </message>
    <message>
        <source>프로그램</source>
        <translation>Program</translation>
    </message>
    <message>
        <source>감속 원인</source>
        <translation>Causes</translation>
    </message>
    <message>
        <source>줄 번호</source>
        <translation>Line</translation>
    </message>
    <message>
        <source>피드 자동조절을 하면 감속 원인이 여기에 나옵니다.</source>
        <translation>After a feed adjustment, this shows why the feeds are slow.</translation>
    </message>
    <message>
        <source>원인별 시간 (min)</source>
        <translation>Time by Cause (min)</translation>
    </message>
    <message>
        <source>피드별 시간 (min)</source>
        <translation>Time by Feed (min)</translation>
    </message>
    <message>
        <source>시간이 많이 걸리는 곳</source>
        <translation>Costliest Places</translation>
    </message>
    <message>
        <source>원인</source>
        <translation>Cause</translation>
    </message>
    <message>
        <source>줄</source>
        <translation>Lines</translation>
    </message>
    <message>
        <source>그 밖</source>
        <translation>Other</translation>
    </message>
    <message>
        <source>프로그램 검사</source>
        <translation>Program check</translation>
    </message>
    <message>
        <source>내용</source>
        <translation>Remark</translation>
    </message>
    <message>
        <source>개수</source>
        <translation>Count</translation>
    </message>
    <message>
        <source>검사 중입니다...</source>
        <translation>Checking...</translation>
    </message>
    <message>
        <source>빠지거나 다르게 읽는 줄이 없습니다.</source>
        <translation>No line is left out or read differently.</translation>
    </message>
    <message>
        <source>화일을 읽을 수 없습니다.</source>
        <translation>The file cannot be read.</translation>
    </message>
    <message>
        <source>불러온 뒤에 화일이 바뀌었습니다. 다시 불러오십시오.</source>
        <translation>The file has changed since it was loaded. Load it again.</translation>
    </message>
    <message>
        <source>검사</source>
        <translation>Check</translation>
    </message>
    <message>
        <source>기계시간</source>
        <translation>Machine time</translation>
    </message>
    <message>
        <source>기계</source>
        <translation>Machine</translation>
    </message>
    <message>
        <source>열기</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>이 화일을 열 프로그램이 없습니다.</source>
        <translation>There is no program to open this file.</translation>
    </message>
    <message>
        <source>기계 화일 선택</source>
        <translation>Choose a machine file</translation>
    </message>
    <message>
        <source>기계 지우기</source>
        <translation>Remove the machine</translation>
    </message>
    <message>
        <source>기계 화일</source>
        <translation>Machine file</translation>
    </message>
    <message>
        <source>기계 화일을 사용할 수 없습니다: </source>
        <translation>The machine file cannot be used: </translation>
    </message>
    <message>
        <source>드웰과 공구교환은 알 수 없습니다.</source>
        <translation>Dwells and tool changes are unknown.</translation>
    </message>
    <message>
        <source>클릭한 줄의 내용이 여기에 나옵니다.</source>
        <translation>Click a row to see its line here.</translation>
    </message>
    <message>
        <source>피드 조정에 쓸 코어</source>
        <translation>Cores for the Adjustment</translation>
    </message>
    <message>
        <source>모두</source>
        <translation>All</translation>
    </message>
    <message>
        <source>잘 보이는 색</source>
        <translation>High-Contrast Colours</translation>
    </message>
    <message>
        <source>메뉴 &quot;화일&quot;의 &quot;불러오기&quot;로 NC 프로그램을 열거나, 화일을 이 창에 끌어다 놓으십시오.</source>
        <translation>Open an NC program with &quot;Load&quot; in the menu &quot;File&quot;, or drop it onto this window.</translation>
    </message>
    <message>
        <source>Ctrl+T로 가공 조건을 정하고 시간을 계산합니다.</source>
        <translation>Ctrl+T sets the machining options and computes the times.</translation>
    </message>
    <message>
        <source>메뉴 &quot;Help&quot;에 설명서와 키 목록이 있습니다.</source>
        <translation>The menu &quot;Help&quot; has the guide and the list of keys.</translation>
    </message>
    <message>
        <source>설명서</source>
        <translation>Guide</translation>
    </message>
    <message>
        <source>키와 마우스</source>
        <translation>Keys and Mouse</translation>
    </message>
    <message>
        <source>설명서가 설치되어 있지 않습니다.</source>
        <translation>The guide is not installed.</translation>
    </message>
    <message>
        <source>예(&amp;Y)</source>
        <translation>&amp;Yes</translation>
    </message>
    <message>
        <source>아니오(&amp;N)</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>조정 전</source>
        <translation>Before</translation>
    </message>
    <message>
        <source>조정 후</source>
        <translation>After</translation>
    </message>
    <message>
        <source>절약</source>
        <translation>Saved</translation>
    </message>
    <message>
        <source>조정 후의 시간이 더 깁니다.</source>
        <translation>The adjusted time is longer.</translation>
    </message>
    <message>
        <source>창 닫기</source>
        <translation>Close Window</translation>
    </message>
    <message>
        <source>기록한 결과가 아직 출력되지 않았습니다. 창을 닫겠습니까?</source>
        <translation>Results were recorded and are in no report. Close the window?</translation>
    </message>
    <message>
        <source>다시 묻지 않음</source>
        <translation>Don't ask again</translation>
    </message>
    <message>
        <source>다시 불러오기 (Ctrl+R)</source>
        <translation>Reload (Ctrl+R)</translation>
    </message>
    <message>
        <source>다른 형식으로 읽기</source>
        <translation>Read in the other format</translation>
    </message>
    <message>
        <source>화일이 디스크에서 바뀌었습니다.</source>
        <translation>The file has changed on disk.</translation>
    </message>
    <message>
        <source>읽는 중</source>
        <translation>reading</translation>
    </message>
    <message>
        <source>검사 중</source>
        <translation>checking</translation>
    </message>
    <message>
        <source>피드 조정 중</source>
        <translation>adjusting the feeds</translation>
    </message>
    <message>
        <source>마스터 모델 생성 중</source>
        <translation>building the master model</translation>
    </message>
    <message>
        <source>그리는 중</source>
        <translation>drawing</translation>
    </message>
    <message>
        <source>그림화일 쓰는 중</source>
        <translation>writing the picture</translation>
    </message>
    <message>
        <source>스프레드시트 쓰는 중</source>
        <translation>filling the spreadsheet</translation>
    </message>
    <message>
        <source>중지 (Esc)</source>
        <translation>Stop (Esc)</translation>
    </message>
</context>
</TS>
