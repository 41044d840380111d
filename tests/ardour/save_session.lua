-- Selects a program as Ardour does (its preset of the same name), edits one parameter,
-- saves the session and renders it.
dofile(os.getenv("ZT_LUA_DIR") .. "/common.lua")

run_and_finish(function()
	local session, track, equaliser = new_equaliser_session()
	load_preset(equaliser, os.getenv("ZT_PROGRAM_NAME"))

	-- Ardour hands the program to the plug-in from a thread of its own: wait for its values.
	local program = values_from("ZT_PROGRAM_VALUES")
	local loaded = false
	for attempt = 1, 100 do
		wait_for_processing()
		loaded = true
		for index, value in pairs(program) do
			loaded = loaded and number(plugin_value(equaliser, index)) == number(value)
		end
		if loaded then break end
		ARDOUR.LuaAPI.usleep(20000)
	end
	assert(loaded, "the program's values reach the equaliser")

	set_through_processor_param(equaliser, values_from("ZT_EDIT"))
	report_values("saved", equaliser)
	assert(session:save_state("", false, false, false, false, false) == 0, "session saved")
	export_to(session, os.getenv("ZT_OUT"), "saved")
end)
